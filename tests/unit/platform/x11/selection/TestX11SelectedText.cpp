#include "fakes/FakeTaskRunner.h"
#include "platform/x11/selection/X11SelectedText.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardProgram.h"
#include "support/x11/ScriptedOwner.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestX11SelectedText : public QObject
{
    Q_OBJECT

    FakeTaskRunner m_runner;
    std::unique_ptr<PasteboardProgram> m_program;
    std::unique_ptr<X11SelectedText> m_selected;
    std::optional<QString> m_answer;

    void ask()
    {
        m_answer.reset();
        m_selected->ask(this, [this](const QString& text) { m_answer = text; });
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<PasteboardProgram>(m_runner);
        m_selected =
            std::make_unique<X11SelectedText>(*m_program->connection, m_program->clock, m_runner);
    }
    void cleanup()
    {
        m_selected.reset();
        m_program.reset();
    }

    void onlyTextIsRequested()
    {
        ScriptedOwner owner("PRIMARY");
        owner.formats = {{"UTF8_STRING", "sélected"}, {"image/png", "..."}, {"text/rtf", "{}"}};
        owner.take();
        ask();
        QVERIFY(!m_answer);
        QTRY_COMPARE(m_answer, u"sélected"_s);
        QCOMPARE(owner.asked, QByteArrayList({"TARGETS", "UTF8_STRING"}));
        QVERIFY(m_program->pasteboard.content().isEmpty());

        owner.formats = {{"UTF8_STRING", "more"}};
        ask();
        QTRY_COMPARE(m_answer, u"more"_s);
    }

    void noSelectionGivesNoText()
    {
        ScriptedOwner owner("PRIMARY");
        owner.take();
        owner.clear();
        ask();
        QTRY_COMPARE(m_answer, QString());
    }

    void secretsAreNotReported()
    {
        ScriptedOwner owner("PRIMARY");
        owner.formats = {{"UTF8_STRING", "hunter2"}, {"x-kde-passwordManagerHint", "secret"}};
        owner.take();
        ask();
        QTRY_COMPARE(m_answer, QString());
        QVERIFY(!owner.asked.contains("UTF8_STRING"));
    }

    void silentOwnerDoesNotBlock()
    {
        ScriptedOwner owner("PRIMARY");
        owner.formats = {{"UTF8_STRING", "late"}};
        owner.answers = {{"TARGETS", ScriptedOwner::silence()}};
        owner.take();
        ask();
        QTRY_VERIFY(owner.asked.contains("TARGETS"));
        QVERIFY(!m_answer);

        // Nor does asking again.
        ScriptedOwner next("PRIMARY");
        next.formats = {{"UTF8_STRING", "prompt"}};
        next.take();
        ask();
        QTRY_COMPARE(m_answer, u"prompt"_s);
    }

    void destroyedOwnerIsNotNotified()
    {
        ScriptedOwner owner("PRIMARY");
        owner.formats = {{"UTF8_STRING", "text"}};
        owner.take();
        bool told = false;
        {
            const QObject shortLived;
            m_selected->ask(const_cast<QObject*>(&shortLived),
                            [&told](const QString&) { told = true; });
        }
        QTRY_VERIFY(owner.asked.contains("UTF8_STRING"));
        ask();
        QTRY_VERIFY(m_answer);
        QVERIFY(!told);
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11SelectedText)
#include "TestX11SelectedText.moc"
