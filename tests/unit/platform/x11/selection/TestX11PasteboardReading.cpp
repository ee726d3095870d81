#include "fakes/FakeTaskRunner.h"
#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/x11/selection/SelectionTransfer.h"
#include "support/Images.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardProgram.h"
#include "support/x11/ScriptedOwner.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestX11PasteboardReading : public QObject
{
    Q_OBJECT

    ThreadPoolTaskRunner m_runner;

private Q_SLOTS:
    void cleanup()
    {
        ScriptedOwner nobody;
        nobody.clear();
        QVERIFY(!nobody.ownsSelection());
    }

    void emptyClipboardReadsAsEmpty()
    {
        PasteboardProgram program(m_runner);
        const QSignalSpy arrived(&program.pasteboard, &Pasteboard::initialContentArrived);
        const qint64 before = program.pasteboard.changeCount();

        // Initial content would arrive before what is copied now.
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "later"}};
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), before + 1);
        QCOMPARE(arrived.count(), 0);
    }

    void allFormatsArePresentWhenTheCountChanges()
    {
        PasteboardProgram program(m_runner);
        const QByteArray png = imageFile(colorfulImage({20, 10}), "png");
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "caf\xc3\xa9"},
                         {"STRING", "caf\xe9"},
                         {"text/rtf", "{\\rtf1 caf\\'e9}"},
                         {"image/png", png}};
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        const PasteboardContent content = program.pasteboard.content();
        QCOMPARE(content.text, std::optional(u"caf\u00e9"_s));
        QCOMPARE(content.rtf, std::optional<QByteArray>("{\\rtf1 caf\\'e9}"));
        QCOMPARE(content.png, std::optional(png));
    }

    void countDoesNotChangeBeforeTheImageIsDecoded()
    {
        FakeTaskRunner runner;
        PasteboardProgram program(runner);
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "text"},
                         {"image/bmp", imageFile(colorfulImage({20, 10}), "bmp")}};
        owner.take();

        QTRY_COMPARE(runner.pending(), std::size_t(1));
        QCOMPARE(program.pasteboard.changeCount(), 0);
        QVERIFY(program.pasteboard.content().isEmpty());

        runner.runNext();
        QCOMPARE(program.pasteboard.changeCount(), 1);
        const QImage image = QImage::fromData(*program.pasteboard.content().png, "PNG");
        QCOMPARE(image.convertToFormat(QImage::Format_RGB32), colorfulImage({20, 10}));
        QCOMPARE(program.pasteboard.content().text, std::optional(u"text"_s));
    }

    void textIsReadFromAnyTarget_data()
    {
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("utf8") << QByteArray("UTF8_STRING") << QByteArray("\xc3\xa9");
        QTest::newRow("mime") << QByteArray("text/plain;charset=utf-8") << QByteArray("\xc3\xa9");
        QTest::newRow("plain") << QByteArray("text/plain") << QByteArray("\xc3\xa9");
        QTest::newRow("latin1") << QByteArray("STRING") << QByteArray("\xe9");
    }

    void textIsReadFromAnyTarget()
    {
        QFETCH(QByteArray, target);
        QFETCH(QByteArray, bytes);
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{target, bytes}};
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"\u00e9"_s));
    }

    void rtfIsReadFromAnyTarget_data()
    {
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("text") << QByteArray("text/rtf");
        QTest::newRow("application") << QByteArray("application/rtf");
        QTest::newRow("rich text") << QByteArray("text/richtext");
    }

    void rtfIsReadFromAnyTarget()
    {
        QFETCH(QByteArray, target);
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{target, "{\\rtf1}"}};
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }

    void refusedTargetFallsBackToTheNext()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{"STRING", "old"}};
        owner.answers = {{"UTF8_STRING", [&](const auto& request) { owner.refuse(request); }}};
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"old"_s));
    }

    void ownerWithoutTargetsIsAskedForText()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{"STRING", "old"}};
        owner.answers = {{"TARGETS", [&](const auto& request) { owner.refuse(request); }}};
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"old"_s));
        QCOMPARE(owner.asked, QByteArrayList({"TARGETS", "UTF8_STRING", "STRING"}));
    }

    void incrementsAreJoined()
    {
        PasteboardProgram program(m_runner);
        const QByteArray png = imageFile(colorfulImage({90, 70}), "png");
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", QByteArray(10'000, 'x') + "end"}, {"image/png", png}};
        owner.incrementSize = 1'000;
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content().text,
                 std::optional(QString(10'000, u'x') + u"end"_s));
        QCOMPARE(program.pasteboard.content().png, std::optional(png));
    }

    void emptyIncrementalTransferIsEmptyText()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", ""}};
        owner.incrementSize = 1'000;
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u""_s));
    }

    void largeTextInOnePropertyArrives()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", QByteArray(3'500'001, 'x')}};
        owner.take();

        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content().text, std::optional(QString(3'500'001, u'x')));
    }

    void secretsAreNeitherReadNorRequested()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner before;
        before.formats = {{"UTF8_STRING", "open"}};
        before.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 1);

        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "hunter2"}, {"x-kde-passwordManagerHint", "secret"}};
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 2);
        QVERIFY(program.pasteboard.content().isEmpty());
        QCOMPARE(owner.asked, QByteArrayList{"TARGETS"});
    }

    void initialContentIsNotAChange()
    {
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "before"}};
        owner.take();
        QVERIFY(owner.ownsSelection());

        PasteboardProgram program(m_runner);
        const QSignalSpy arrived(&program.pasteboard, &Pasteboard::initialContentArrived);
        const qint64 before = program.pasteboard.changeCount();
        QTRY_COMPARE(arrived.count(), 1);
        QCOMPARE(program.pasteboard.changeCount(), before);
        QCOMPARE(program.pasteboard.content(), textOnly(u"before"_s));

        owner.formats = {{"UTF8_STRING", "after"}};
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), before + 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"after"_s));
        QCOMPARE(arrived.count(), 1);
    }

    void changeReplacesTheInitialContent()
    {
        ScriptedOwner slow;
        slow.answers = {{"TARGETS", ScriptedOwner::silence()}};
        slow.take();
        QVERIFY(slow.ownsSelection());
        PasteboardProgram program(m_runner);
        const QSignalSpy arrived(&program.pasteboard, &Pasteboard::initialContentArrived);
        QTRY_COMPARE(slow.asked, QByteArrayList{"TARGETS"});

        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "change"}};
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        program.clock.advance(10 * SelectionTransfer::deadline);
        QCoreApplication::processEvents();
        QCOMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"change"_s));
        QCOMPARE(arrived.count(), 0);
    }

    void newerChangeReplacesTheOneBeingRead()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner first;
        std::optional<ScriptedOwner::Request> late;
        first.answers = {{"UTF8_STRING", [&](const auto& request) { late = request; }}};
        first.take();
        QTRY_VERIFY(late.has_value());

        ScriptedOwner second;
        second.formats = {{"UTF8_STRING", "second"}};
        second.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 1);

        // The late answer of the first owner is ignored, and its window still exists.
        first.put(*late, "UTF8_STRING", 8, "first");
        first.notify(*late);
        QVERIFY(!first.ownsSelection());
        program.clock.advance(SelectionTransfer::deadline);
        QTRY_VERIFY(second.ownsSelection());
        QCOMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"second"_s));
    }

    void newerChangeReplacesTheOneBeingDecoded()
    {
        FakeTaskRunner runner;
        PasteboardProgram program(runner);
        ScriptedOwner first;
        first.formats = {{"image/png", imageFile(colorfulImage({5, 5}), "png")}};
        first.take();
        QTRY_COMPARE(runner.pending(), std::size_t(1));

        ScriptedOwner second;
        second.formats = {{"UTF8_STRING", "second"}};
        second.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        runner.runAll();
        QCOMPARE(program.pasteboard.changeCount(), 1);
        QCOMPARE(program.pasteboard.content(), textOnly(u"second"_s));
    }

    void reclaimingByTheSameOwnerIsAChange()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "same"}};
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 2);
        QCOMPARE(program.pasteboard.content(), textOnly(u"same"_s));
    }

    void otherSelectionsAreIgnored()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner primary("PRIMARY");
        primary.formats = {{"UTF8_STRING", "selected"}};
        primary.take();
        QVERIFY(primary.ownsSelection());

        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "copied"}};
        owner.take();
        QTRY_COMPARE(program.pasteboard.changeCount(), 1);
        QVERIFY(primary.asked.isEmpty());
    }

    void lastOfManyChangesIsRead()
    {
        PasteboardProgram program(m_runner);
        ScriptedOwner owner;
        for (int i = 0; i < 100; ++i) {
            owner.formats = {{"UTF8_STRING", QByteArray::number(i)}};
            owner.take();
        }
        QTRY_COMPARE(program.pasteboard.content(), textOnly(u"99"_s));
        QVERIFY(program.pasteboard.changeCount() <= 100);
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11PasteboardReading)
#include "TestX11PasteboardReading.moc"
