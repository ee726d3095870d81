#include "support/Images.h"
#include "support/wayland/PasteboardSession.h"
#include "support/wayland/ScriptedSource.h"
#include "support/wayland/SwayDesktop.h"
#include "support/wayland/WlClipboard.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestWaylandPasteboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { WlClipboard::clear(); }

    void allFormatsArePresentWhenTheCountChanges()
    {
        PasteboardSession session;
        const QByteArray png = imageFile(colorfulImage({20, 10}), "png");
        ScriptedSource source;
        source.copy({{"text/plain;charset=utf-8", ScriptedSource::bytes("caf\xc3\xa9")},
                     {"text/rtf", ScriptedSource::bytes("{\\rtf1 caf\\'e9}")},
                     {"image/png", ScriptedSource::bytes(png)}});

        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        const PasteboardContent content = session.pasteboard.content();
        QCOMPARE(content.text, std::optional(u"caf\u00e9"_s));
        QCOMPARE(content.rtf, std::optional<QByteArray>("{\\rtf1 caf\\'e9}"));
        QCOMPARE(content.png, std::optional(png));
    }

    void consecutiveCopiesAreAllSeen()
    {
        PasteboardSession session;
        const WlClipboard::Copy first("first");
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QCOMPARE(session.pasteboard.content().text, std::optional(u"first"_s));
        const WlClipboard::Copy second("second");
        QTRY_COMPARE(session.pasteboard.changeCount(), 2);
        QCOMPARE(session.pasteboard.content().text, std::optional(u"second"_s));
    }

    void initialContentDoesNotChangeTheCount()
    {
        const PasteboardSession before;
        const WlClipboard::Copy copy("early");
        QTRY_COMPARE(before.pasteboard.changeCount(), 1);

        const PasteboardSession session;
        QSignalSpy arrived(&session.pasteboard, &Pasteboard::initialContentArrived);
        QVERIFY(arrived.wait());
        QCOMPARE(session.pasteboard.changeCount(), 0);
        QCOMPARE(session.pasteboard.content().text, std::optional(u"early"_s));
    }

    void writtenTextCanBePasted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("short") << u"plain \u4e2d"_s;
        QTest::newRow("beyond the size of a pipe") << QString(3'000'000, u'\u00e9');
    }
    void writtenTextCanBePasted()
    {
        QFETCH(const QString, text);
        PasteboardSession session;
        session.pasteboard.write({.text = text});
        QCOMPARE(session.pasteboard.changeCount(), 1);
        QTRY_COMPARE(WlClipboard::pasted(), text.toUtf8());
        QCOMPARE(WlClipboard::pasted(u"UTF8_STRING"_s), text.toUtf8());
    }

    void pasteIsServedWhileTheMainThreadIsBlocked()
    {
        PasteboardSession session;
        session.pasteboard.write({.text = u"served"_s});
        QTRY_VERIFY(WlClipboard::types().contains("text/plain"));
        // No event of the main thread is handled between these two lines.
        QCOMPARE(WlClipboard::pasted(), QByteArray("served"));
    }

    void ownContentIsNotReadBack()
    {
        PasteboardSession session;
        PasteboardSession observer;
        session.pasteboard.write({.text = u"own"_s});
        QTRY_COMPARE(observer.pasteboard.content().text, std::optional(u"own"_s));
        // What another program copies arrives after anything about the own content.
        const WlClipboard::Copy other("other");
        QTRY_COMPARE(session.pasteboard.content().text, std::optional(u"other"_s));
        QCOMPARE(session.pasteboard.changeCount(), 2);
    }

    void secretContentReadsAsEmptyAndIsNeverRequested()
    {
        PasteboardSession session;
        ScriptedSource source;
        source.copy({{"text/plain;charset=utf-8", ScriptedSource::bytes("password")},
                     {"x-kde-passwordManagerHint", ScriptedSource::bytes("secret")}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QVERIFY(session.pasteboard.content().isEmpty());
        QVERIFY(!source.hasBeenAskedFor("text/plain;charset=utf-8"));
    }

    void contentCanBePastedAfterItsOwnerHasEnded()
    {
        PasteboardSession session;
        auto source = std::make_unique<ScriptedSource>();
        source->copy({{"text/plain;charset=utf-8", ScriptedSource::bytes("kept")},
                      {"text/html", ScriptedSource::bytes("<b>kept</b>")}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        QTRY_VERIFY(source->hasBeenAskedFor("text/html"));
        source.reset();
        QTRY_COMPARE(WlClipboard::pasted(), QByteArray("kept"));
        QCOMPARE(WlClipboard::pasted(u"text/html"_s), QByteArray("<b>kept</b>"));
        QCOMPARE(session.pasteboard.changeCount(), 1);
    }

    void secretIsNotOfferedAfterItsOwnerHasEnded()
    {
        PasteboardSession session;
        PasteboardSession observer;
        auto source = std::make_unique<ScriptedSource>();
        source->copy({{"text/plain;charset=utf-8", ScriptedSource::bytes("password")},
                      {"x-kde-passwordManagerHint", ScriptedSource::bytes("secret")}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        source.reset();
        const WlClipboard::Copy other("other");
        QTRY_COMPARE(observer.pasteboard.content().text, std::optional(u"other"_s));
        QCOMPARE(observer.pasteboard.changeCount(), 2); // the secret and the other copy
    }

    void anotherProgramCanClearTheClipboard()
    {
        PasteboardSession session;
        session.pasteboard.write({.text = u"own"_s});
        QTRY_COMPARE(WlClipboard::pasted(), QByteArray("own"));
        WlClipboard::clear();
        QTRY_COMPARE(session.pasteboard.changeCount(), 2);
        QVERIFY(session.pasteboard.content().isEmpty());
    }

    void imageIsConvertedToPng()
    {
        PasteboardSession session;
        ScriptedSource source;
        source.copy(
            {{"image/bmp", ScriptedSource::bytes(imageFile(colorfulImage({20, 10}), "bmp"))}});
        QTRY_COMPARE(session.pasteboard.changeCount(), 1);
        const QImage image = QImage::fromData(session.pasteboard.content().png.value(), "PNG");
        QCOMPARE(image.convertToFormat(QImage::Format_RGB32), colorfulImage({20, 10}));
    }
};

DRIFTBOX_WAYLAND_TEST(TestWaylandPasteboard)
#include "TestWaylandPasteboard.moc"
