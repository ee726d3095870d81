#include "platform/wayland/clipboard/WaylandSelectedText.h"
#include "support/wayland/PasteboardSession.h"
#include "support/wayland/SwayDesktop.h"
#include "support/wayland/WlClipboard.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestWaylandSelectedText : public QObject
{
    Q_OBJECT

    PasteboardSession m_session;
    WaylandSelectedText m_selectedText{*m_session.thread, m_session.runner};

    std::optional<QString> answered()
    {
        std::optional<QString> answer;
        QObject owner;
        m_selectedText.ask(&owner, [&](const QString& text) { answer = text; });
        (void)QTest::qWaitFor([&] { return answer.has_value(); });
        return answer;
    }

private Q_SLOTS:
    void textIsEmptyWithoutASelection() { QCOMPARE(answered(), std::optional(QString())); }

    void selectedTextIsRead()
    {
        const WlClipboard::Copy selection("selected", {u"--primary"_s});
        QTRY_COMPARE(answered(), std::optional(u"selected"_s));
        QCOMPARE(m_session.pasteboard.changeCount(), 0);
    }

    void destroyedOwnerIsNotAnswered()
    {
        const WlClipboard::Copy selection("again", {u"--primary"_s});
        bool isAnswered = false;
        {
            QObject owner;
            m_selectedText.ask(&owner, [&](const QString&) { isAnswered = true; });
        }
        // Answers come in the order of the questions.
        QTRY_COMPARE(answered(), std::optional(u"again"_s));
        QVERIFY(!isAnswered);
    }
};

DRIFTBOX_WAYLAND_TEST(TestWaylandSelectedText)
#include "TestWaylandSelectedText.moc"
