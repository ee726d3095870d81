#include "support/Images.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardTest.h"
#include "support/x11/ScriptedOwner.h"
#include "support/x11/ScriptedRequestor.h"
#include "support/x11/Xclip.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

/// What happens to copied content when its program ends.
class TestX11PasteboardInheritance : public PasteboardTest
{
    Q_OBJECT

private Q_SLOTS:
    void contentOutlivesItsProgram()
    {
        const QByteArray png = imageFile(colorfulImage({30, 20}), "png");
        auto owner = std::make_unique<ScriptedOwner>();
        owner->formats = {{"UTF8_STRING", "text"},
                          {"text/rtf", "{\\rtf1}"},
                          {"image/png", png},
                          {"text/html", "<b>text</b>"},
                          {"text/uri-list", "file:///tmp/x\r\n"}};
        owner->take();
        QTRY_VERIFY((m_runner.runAll(), pasteboard().changeCount() == 1));
        QTRY_VERIFY(owner->asked.contains("text/html") && owner->asked.contains("text/uri-list"));
        const PasteboardContent before = pasteboard().content();
        owner.reset();

        QTRY_VERIFY(Xclip::pastes("text"));
        QCOMPARE(Xclip::pasted(u"text/rtf"_s), "{\\rtf1}");
        QCOMPARE(Xclip::pasted(u"image/png"_s), png);
        QCOMPARE(Xclip::pasted(u"text/html"_s), "<b>text</b>");
        QCOMPARE(Xclip::pasted(u"text/uri-list"_s), "file:///tmp/x\r\n");
        QCOMPARE(pasteboard().changeCount(), 1);
        QCOMPARE(pasteboard().content(), before);
    }

    void contentOfARealProgramOutlivesIt()
    {
        QProcess xclip;
        xclip.start(u"xclip"_s, {u"-quiet"_s, u"-i"_s, u"-selection"_s, u"clipboard"_s});
        xclip.write("from xclip");
        xclip.closeWriteChannel();
        QTRY_COMPARE(pasteboard().content(), textOnly(u"from xclip"_s));
        xclip.kill();
        QTRY_COMPARE(xclip.state(), QProcess::NotRunning);

        QTRY_VERIFY(Xclip::pastes("from xclip"));
        QCOMPARE(pasteboard().changeCount(), 1);
    }

    void ownerMayLoseOnlyItsWindow()
    {
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "text"}};
        owner.take();
        QTRY_COMPARE(pasteboard().changeCount(), 1);
        owner.destroyWindow();
        QTRY_VERIFY(Xclip::pastes("text"));
        QCOMPARE(pasteboard().changeCount(), 1);
    }

    void initialContentOutlivesItsProgram()
    {
        m_program.reset();
        auto owner = std::make_unique<ScriptedOwner>();
        owner->formats = {{"UTF8_STRING", "early"}};
        owner->take();
        QVERIFY(owner->ownsSelection());
        m_program = std::make_unique<PasteboardProgram>(m_runner);
        QTRY_COMPARE(pasteboard().content(), textOnly(u"early"_s));
        owner.reset();

        QTRY_VERIFY(Xclip::pastes("early"));
        QCOMPARE(pasteboard().changeCount(), 0);
    }

    void formatsReadBeforeTheOwnerEndedAreKept()
    {
        auto owner = std::make_unique<ScriptedOwner>();
        owner->formats = {{"UTF8_STRING", "text"}};
        owner->answers = {{"text/rtf", ScriptedOwner::silence()}};
        owner->take();
        QTRY_VERIFY(owner->asked.contains("text/rtf"));
        owner.reset();

        QTRY_COMPARE(pasteboard().changeCount(), 1);
        QTRY_VERIFY(Xclip::pastes("text"));
        QCOMPARE(pasteboard().changeCount(), 1);
    }

    void contentHandedOverOnExitIsKept()
    {
        ScriptedOwner owner;
        owner.answers = {{"UTF8_STRING", [&](const ScriptedOwner::Request& request) {
                              owner.put(request, "UTF8_STRING", 8, "text");
                              owner.notify(request);
                              owner.end();
                          }}};
        owner.take();

        QTRY_COMPARE(pasteboard().changeCount(), 1);
        QCOMPARE(pasteboard().content(), textOnly(u"text"_s));
        QTRY_VERIFY(Xclip::pastes("text"));
    }

    void imageBeingDecodedOutlivesItsProgram()
    {
        const QByteArray png = imageFile(colorfulImage({30, 20}), "png");
        auto owner = std::make_unique<ScriptedOwner>();
        owner->formats = {{"image/png", png}};
        owner->take();
        QTRY_COMPARE(m_runner.pending(), std::size_t(1));
        owner.reset();
        QCOMPARE(Xclip::pasted(u"image/png"_s), "");
        QCOMPARE(pasteboard().changeCount(), 0);

        m_runner.runAll();
        QCOMPARE(pasteboard().changeCount(), 1);
        QTRY_COMPARE(Xclip::pasted(u"image/png"_s), png);
    }

    void secretsEndWithTheirProgram()
    {
        auto owner = std::make_unique<ScriptedOwner>();
        owner->formats = {{"UTF8_STRING", "hunter2"}, {"x-kde-passwordManagerHint", "secret"}};
        owner->take();
        QTRY_COMPARE(pasteboard().changeCount(), 1);
        owner.reset();

        ScriptedRequestor requestor;
        requestor.ask("TARGETS");
        QTRY_COMPARE(requestor.answers, QByteArrayList{"TARGETS refused"});
    }

    void clearedContentIsNotKept()
    {
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "text"}, {"text/html", "text"}};
        owner.take();
        QTRY_VERIFY(owner.asked.contains("text/html"));
        QCOMPARE(pasteboard().changeCount(), 1);
        owner.clear();

        QTRY_COMPARE(pasteboard().changeCount(), 2);
        QVERIFY(pasteboard().content().isEmpty());
        owner.end();
        ScriptedRequestor requestor;
        requestor.ask("TARGETS");
        QTRY_COMPARE(requestor.answers, QByteArrayList{"TARGETS refused"});
    }

    void contentClearedWhileBeingReadIsNotKept()
    {
        ScriptedOwner owner;
        owner.formats = {{"UTF8_STRING", "text"}};
        owner.answers = {{"text/rtf", ScriptedOwner::silence()}};
        owner.take();
        QTRY_VERIFY(owner.asked.contains("text/rtf"));
        owner.clear();

        QTRY_COMPARE(pasteboard().changeCount(), 1);
        QVERIFY(pasteboard().content().isEmpty());
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11PasteboardInheritance)
#include "TestX11PasteboardInheritance.moc"
