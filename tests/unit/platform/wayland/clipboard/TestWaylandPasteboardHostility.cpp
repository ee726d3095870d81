#include "platform/selection/ByteSizes.h"
#include "support/wayland/PasteboardSession.h"
#include "support/wayland/ScriptedSource.h"
#include "support/wayland/SwayDesktop.h"
#include "support/wayland/WlClipboard.h"

#include <csignal>
#include <thread>

#include <pthread.h>
#include <unistd.h>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QByteArray plainText = "text/plain;charset=utf-8";

// Writes without an end, on a thread of its own, until the reader has had enough.
ScriptedSource::Answer flood(std::jthread& thread)
{
    return [&thread](FileDescriptor pipe) {
        thread = std::jthread([pipe = std::move(pipe)] {
            sigset_t signals;
            sigemptyset(&signals);
            sigaddset(&signals, SIGPIPE);
            pthread_sigmask(SIG_BLOCK, &signals, nullptr);
            const QByteArray block(kibibyte * 64, 'x');
            while (write(pipe.get(), block.constData(), static_cast<std::size_t>(block.size())) > 0)
                ;
        });
    };
}

} // namespace

class TestWaylandPasteboardHostility : public QObject
{
    Q_OBJECT

    // The session has not suffered: the next copy arrives.
    static void expectNextCopyToArrive(PasteboardSession& session)
    {
        const WlClipboard::Copy next("next");
        QTRY_COMPARE(session.pasteboard.content().text, std::optional(u"next"_s));
    }

private Q_SLOTS:
    void cleanup() { WlClipboard::clear(); }

    void silentOwnerReadsAsEmptyAfterTheDeadline()
    {
        PasteboardSession session(PasteboardSession::shortDeadline);
        ScriptedSource source;
        QTest::ignoreMessage(QtWarningMsg, "Refused the clipboard's text: not complete within 2 s");
        source.copy({{plainText, source.silence()}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QVERIFY(session.pasteboard.content().isEmpty());
        expectNextCopyToArrive(session);
    }

    void slowOwnerReadsAsEmptyAfterTheDeadline()
    {
        PasteboardSession session(PasteboardSession::shortDeadline);
        ScriptedSource source;
        QTest::ignoreMessage(QtWarningMsg, "Refused the clipboard's text: not complete within 2 s");
        source.copy({{plainText, [&source](FileDescriptor pipe) {
                          (void)write(pipe.get(), "x", 1);
                          source.pipes.push_back(std::move(pipe));
                      }}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QVERIFY(session.pasteboard.content().isEmpty());
        expectNextCopyToArrive(session);
    }

    void ownerIsNotAskedAgainAfterTwoMissedDeadlines()
    {
        PasteboardSession session(PasteboardSession::shortDeadline);
        ScriptedSource source;
        QTest::ignoreMessage(QtWarningMsg,
                             "Refused the clipboard's image: not complete within 2 s");
        QTest::ignoreMessage(QtWarningMsg, "Refused the clipboard's text: not complete within 2 s");
        source.copy({{"image/png", source.silence()},
                     {plainText, source.silence()},
                     {"text/rtf", source.silence()}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QVERIFY(source.hasBeenAskedFor(plainText));
        QVERIFY(!source.hasBeenAskedFor("text/rtf"));
    }

    void nextCopyDoesNotWaitForASilentOwner()
    {
        PasteboardSession session;
        ScriptedSource source;
        source.copy({{plainText, source.silence()}});
        QTRY_VERIFY(source.hasBeenAskedFor(plainText));
        expectNextCopyToArrive(session);
        QCOMPARE(session.pasteboard.changeCount(), 1);
    }

    void contentBeyondTheLimitIsRefused()
    {
        std::jthread thread;
        PasteboardSession session;
        ScriptedSource source;
        QTest::ignoreMessage(QtWarningMsg, "Refused the clipboard's text: larger than 64 MiB");
        source.copy({{plainText, flood(thread)}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QVERIFY(session.pasteboard.content().isEmpty());
        expectNextCopyToArrive(session);
    }

    void formatIsMissingWhenItsOwnerClosesThePipe()
    {
        PasteboardSession session;
        ScriptedSource source;
        source.copy({{"image/png", [](const FileDescriptor&) {}},
                     {plainText, ScriptedSource::bytes("text")}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QCOMPARE(session.pasteboard.content(), PasteboardContent{.text = u"text"_s});
    }

    void truncatedImageIsRefused()
    {
        PasteboardSession session;
        ScriptedSource source;
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^Refused the clipboard's image: "_s));
        source.copy({{"image/png", ScriptedSource::bytes("\x89PNG\r\n\x1a\n")},
                     {plainText, ScriptedSource::bytes("text")}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QCOMPARE(session.pasteboard.content(), PasteboardContent{.text = u"text"_s});
    }

    void contentIsFoundAmongThousandsOfTypes()
    {
        PasteboardSession session;
        ScriptedSource source;
        std::map<QByteArray, ScriptedSource::Answer> answers;
        for (int i = 0; i < 2'000; ++i)
            answers.insert({"application/x-" + QByteArray::number(i), source.silence()});
        answers.insert({plainText, ScriptedSource::bytes("needle")});
        source.copy(answers);
        QTRY_COMPARE(session.pasteboard.content().text, std::optional(u"needle"_s));
    }

    void stalledReaderDoesNotBlockOthers()
    {
        PasteboardSession session;
        const QString text(1'000'000, u'x');
        session.pasteboard.write({.text = text});
        QTRY_VERIFY(WlClipboard::types().contains("text/plain"));
        QProcess stopped; // asks for the text and never reads it
        stopped.start(u"sh"_s, {u"-c"_s, u"wl-paste | sleep 60"_s});
        QVERIFY(stopped.waitForStarted());
        QCOMPARE(WlClipboard::pasted(), text.toUtf8());
        stopped.kill();
        stopped.waitForFinished();
    }

    void lossOfTheCompositorIsReportedOnce()
    {
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        const QByteArray display = qgetenv("WAYLAND_DISPLAY");
        auto desktop = std::make_unique<SwayDesktop>();
        PasteboardSession session;
        QTest::ignoreMessage(QtCriticalMsg, "The compositor has closed the connection");
        desktop->crash();
        qputenv("XDG_RUNTIME_DIR", runtime);
        qputenv("WAYLAND_DISPLAY", display);

        // What is written now does no harm, and can be read back.
        session.pasteboard.write({.text = u"late"_s});
        QCOMPARE(session.pasteboard.content().text, std::optional(u"late"_s));
        // The thread has handled the write when it has handled this.
        QMetaObject::invokeMethod(
            &session.thread->clipboard(), [] {}, Qt::BlockingQueuedConnection);
    }

    void threadDoesNotStartWithoutACompositor()
    {
        const QByteArray display = qgetenv("WAYLAND_DISPLAY");
        qputenv("WAYLAND_DISPLAY", "nothing-here");
        QVERIFY(!ClipboardThread::start());
        qputenv("WAYLAND_DISPLAY", display);
    }
};

DRIFTBOX_WAYLAND_TEST(TestWaylandPasteboardHostility)
#include "TestWaylandPasteboardHostility.moc"
