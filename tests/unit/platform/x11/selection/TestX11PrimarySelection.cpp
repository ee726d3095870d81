#include "platform/x11/selection/X11PrimarySelection.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardTest.h"
#include "support/x11/ScriptedOwner.h"
#include "support/x11/Xclip.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestX11PrimarySelection : public PasteboardTest
{
    Q_OBJECT

private Q_SLOTS:
    void pasteboardTextIsOfferedOnRequest()
    {
        X11PrimarySelection primary(*m_program->connection, m_program->clock, pasteboard());
        pasteboard().write({.text = u"for the terminal"_s, .rtf = "{\\rtf1}", .png = {}});
        QCOMPARE(Xclip::pasted(u"UTF8_STRING"_s, u"primary"_s), "");

        bool offered = false;
        primary.offerPasteboardText(this, [&] { offered = true; });
        QVERIFY(!offered);
        QTRY_VERIFY(offered);
        QCOMPARE(Xclip::pasted(u"UTF8_STRING"_s, u"primary"_s), "for the terminal");
        QCOMPARE(Xclip::pasted(u"text/rtf"_s, u"primary"_s), "");
    }

    void selectionIsUnchangedWithoutText()
    {
        ScriptedOwner selected("PRIMARY");
        selected.formats = {{"UTF8_STRING", "selected"}};
        selected.take();
        QVERIFY(selected.ownsSelection());
        X11PrimarySelection primary(*m_program->connection, m_program->clock, pasteboard());
        pasteboard().write({.text = {}, .rtf = "{\\rtf1}", .png = {}});

        bool offered = false;
        primary.offerPasteboardText(this, [&] { offered = true; });
        QTRY_VERIFY(offered);
        QVERIFY(selected.ownsSelection());
    }

    void destroyedOwnerIsNotNotified()
    {
        X11PrimarySelection primary(*m_program->connection, m_program->clock, pasteboard());
        pasteboard().write(textOnly(u"x"_s));
        auto dead = std::make_unique<QObject>();
        bool toldTheDead = false;
        bool toldTheLiving = false;
        primary.offerPasteboardText(dead.get(), [&] { toldTheDead = true; });
        primary.offerPasteboardText(this, [&] { toldTheLiving = true; });
        dead.reset();

        QTRY_VERIFY(toldTheLiving);
        QVERIFY(!toldTheDead);
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11PrimarySelection)
#include "TestX11PrimarySelection.moc"
