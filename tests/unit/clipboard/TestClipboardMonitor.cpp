#include "clipboard/ClipboardMonitor.h"
#include "fakes/FakeClock.h"
#include "fakes/FakePasteboard.h"
#include "support/main/TestMain.h"

#include <memory>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Captured = ClipboardMonitor::CapturedContent;

namespace {

QByteArray png(char filling, qsizetype size)
{
    return QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) + QByteArray(size - 16, filling);
}

} // namespace

class TestClipboardMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_captures.clear();
        m_pasteboard = std::make_unique<FakePasteboard>();
        m_clock = std::make_unique<FakeClock>();
    }

    void contentPresentAtLaunchIsNotCaptured()
    {
        m_pasteboard->copy({.text = u"old"_s});
        const auto monitor = startedMonitor();
        m_clock->advance(2s);
        QVERIFY(m_captures.empty());

        copyAndWait({.text = u"old"_s}); // the same again repeats it
        QVERIFY(m_captures.empty());
        copyAndWait({.text = u"new"_s});
        QCOMPARE(m_captures.size(), size_t(1));
    }

    void initialContentThatArrivesLateIsNotCaptured()
    {
        const auto monitor = startedMonitor();
        m_pasteboard->deliverInitialContent({.text = u"old"_s});
        m_clock->advance(2s);
        copyAndWait({.text = u"old"_s});
        QVERIFY(m_captures.empty());
    }

    void captureWaitsForTheNextPoll()
    {
        const auto monitor = startedMonitor();
        m_pasteboard->copy({.text = u"a"_s});
        m_clock->advance(499ms);
        QVERIFY(m_captures.empty());
        m_clock->advance(1ms);
        QCOMPARE(m_captures.size(), size_t(1));
        m_pasteboard->copy({.text = u"b"_s});
        monitor->tick();
        QCOMPARE(m_captures.back().text, u"b"_s);
    }

    void startingTwiceInstallsOneTimer()
    {
        auto monitor = startedMonitor();
        QCOMPARE(m_clock->repetitions(), 1);
        monitor->start();
        QCOMPARE(m_clock->repetitions(), 1);
        monitor.reset();
        QCOMPARE(m_clock->repetitions(), 0);
    }

    void repeatedTextIsCapturedOnlyAfterSomethingElse()
    {
        const auto monitor = startedMonitor();
        copyAndWait({.text = u"A"_s});
        copyAndWait({.text = u"A"_s, .rtf = QByteArray("{\\rtf1}")}); // RTF plays no part
        QCOMPARE(m_captures.size(), size_t(1));
        copyAndWait({.text = u"B"_s});
        copyAndWait({.text = u"A"_s});
        QCOMPARE(m_captures.size(), size_t(3));
    }

    void longTextIsCutToItsFirstCharacters()
    {
        const auto monitor = startedMonitor();
        const QString family =
            u"👩‍👩‍👧‍👦"_s; // one character to the eye, eleven code units
        copyAndWait({.text = family.repeated(5000)});
        QCOMPARE(m_captures.back().text, family.repeated(4000));
        copyAndWait({.text = QString(5000, u'x')});
        QCOMPARE(m_captures.back().text, QString(4000, u'x'));
        copyAndWait({.text = QString(4000, u'y')});
        QCOMPARE(m_captures.back().text, QString(4000, u'y'));
    }

    void largeRtfIsDroppedAndTheTextKept()
    {
        const auto monitor = startedMonitor();
        copyAndWait({.text = u"a"_s, .rtf = QByteArray(65'536, 'r')});
        QCOMPARE(m_captures.back().rtfData, QByteArray(65'536, 'r'));
        copyAndWait({.text = u"b"_s, .rtf = QByteArray(65'537, 'r')});
        QVERIFY(m_captures.back() == (Captured{.text = u"b"_s}));
    }

    void unreadableContentIsNotCaptured()
    {
        const auto monitor = startedMonitor();
        copyAndWait({.text = u""_s});
        copyAndWait({});
        copyAndWait({.rtf = QByteArray("{\\rtf1}")});
        QVERIFY(m_captures.empty());
    }

    void imageTakesPrecedenceOverText()
    {
        const auto monitor = startedMonitor();
        copyAndWait({.text = u"a"_s, .rtf = QByteArray("{}"), .png = png('1', 40)});
        const Captured expected{.kind = ClipboardItem::Kind::image, .imageData = png('1', 40)};
        QVERIFY(m_captures.back() == expected);
    }

    void imagesOfEqualLengthCountAsTheSame()
    {
        const auto monitor = startedMonitor();
        copyAndWait({.png = png('1', 40)});
        copyAndWait({.png = png('2', 40)});
        QCOMPARE(m_captures.size(), size_t(1));
        copyAndWait({.png = png('2', 41)});
        QCOMPARE(m_captures.size(), size_t(2));
    }

    void signaturesHaveTheirFormat()
    {
        QCOMPARE(ClipboardMonitor::signature({}), u"t:"_s);
        QCOMPARE(ClipboardMonitor::signature({.text = u"i:3"_s}), u"t:i:3"_s);
        QCOMPARE(ClipboardMonitor::signature({.kind = ClipboardItem::Kind::image}), u"i:0:"_s);
        QCOMPARE(ClipboardMonitor::signature(
                     {.kind = ClipboardItem::Kind::image, .imageData = png('1', 40)}),
                 u"i:40:137807871131026100001373726882"_s);
    }

    void contentMarkedAsSeenIsNotCaptured()
    {
        const auto monitor = startedMonitor();
        copyAndWait({.text = u"a"_s});
        m_pasteboard->write({.text = u"own"_s});
        monitor->markSeen();
        m_clock->advance(1s);
        copyAndWait({.text = u"own"_s});
        QCOMPARE(m_captures.size(), size_t(1));
        copyAndWait({.text = u"a"_s});
        QCOMPARE(m_captures.size(), size_t(2));
    }

private:
    std::unique_ptr<ClipboardMonitor> startedMonitor()
    {
        auto monitor = std::make_unique<ClipboardMonitor>(*m_pasteboard, *m_clock);
        monitor->setOnCapture([this](const Captured& content) { m_captures.push_back(content); });
        QTest::ignoreMessage(QtInfoMsg, "Monitor started");
        monitor->start();
        return monitor;
    }

    void copyAndWait(const PasteboardContent& content)
    {
        m_pasteboard->copy(content);
        m_clock->advance(500ms);
    }

    std::unique_ptr<FakePasteboard> m_pasteboard;
    std::unique_ptr<FakeClock> m_clock;
    std::vector<Captured> m_captures;
};

DRIFTBOX_TEST(TestClipboardMonitor, QCoreApplication)
#include "TestClipboardMonitor.moc"
