#include "OpenNote.h"
#include "notes/view/NoteButton.h"
#include "notes/view/NoteControlRow.h"

#include <optional>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestNoteControlRow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_note.emplace();
        m_window = std::make_unique<QWidget>();
        m_row = new NoteControlRow(m_note->viewModel, m_window.get());
        m_row->resize(180, NoteControlRow::preferredHeight);
        m_window->resize(180, 100);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void cleanup()
    {
        m_window.reset();
        m_note.reset();
    }

    void theControlsStandInTheirOrder()
    {
        const QStringList expected = {u"Yellow"_s,   u"Blue"_s,       u"Green"_s,
                                      u"Pink"_s,     u"Save"_s,       u"Copy to clipboard"_s,
                                      u"New note"_s, u"Delete note"_s};
        m_row->setPresent(true);
        QTRY_VERIFY(m_row->isVisible());
        QMap<int, QString> byPlace;
        for (const QAbstractButton* control : m_row->findChildren<QAbstractButton*>()) {
            byPlace.insert(control->x(), control->accessibleName());
            QCOMPARE(control->toolTip(), control->accessibleName());
        }
        QCOMPARE(QStringList(byPlace.values()), expected);
    }

    void theyFitTheSmallestNote()
    {
        m_row->setPresent(true);
        m_row->resize(144, NoteControlRow::preferredHeight);
        QTRY_VERIFY(m_row->isVisible());
        QRect last;
        QList<QAbstractButton*> controls = m_row->findChildren<QAbstractButton*>();
        std::ranges::sort(controls, {}, [](const QWidget* control) { return control->x(); });
        for (const QAbstractButton* control : controls) {
            QVERIFY(!control->geometry().intersects(last));
            QVERIFY(m_row->rect().contains(control->geometry()));
            last = control->geometry();
        }
    }

    void theyFadeInAndOut()
    {
        QVERIFY(!m_row->isVisible());
        m_row->setPresent(true);
        QTRY_VERIFY(m_row->isVisible());
        m_row->setPresent(false);
        QTRY_VERIFY(!m_row->isVisible());
    }

    void theNotesColorIsMarked()
    {
        m_row->setPresent(true);
        QCOMPARE(checkedSwatches(), QStringList(u"Yellow"_s));
        click(u"Green"_s);
        QCOMPARE(m_note->viewModel.color(), NoteColor::green);
        QCOMPARE(checkedSwatches(), QStringList(u"Green"_s));
        click(u"Green"_s);
        QCOMPARE(checkedSwatches(), QStringList(u"Green"_s));
        QCOMPARE(m_note->reports, 1);
    }

    void savingIsTurnedOnAndOff()
    {
        m_row->setPresent(true);
        click(u"Save"_s);
        QVERIFY(m_note->viewModel.isSaved());
        QVERIFY(!control(u"Save"_s));
        click(u"Unsave — note becomes a draft (deleted on close)"_s);
        QVERIFY(!m_note->viewModel.isSaved());
        QVERIFY(control(u"Save"_s));
    }

    void theOtherControlsCallTheNote()
    {
        int closed = 0;
        int made = 0;
        m_note->viewModel.setOnClose([&closed] { ++closed; });
        m_note->viewModel.setOnNewNote([&made] { ++made; });
        m_note->viewModel.setText(u"text"_s);
        m_row->setPresent(true);
        click(u"Copy to clipboard"_s);
        QCOMPARE(m_note->desk.pasteboard.content().text, u"text"_s);
        click(u"New note"_s);
        QCOMPARE(made, 1);
        click(u"Delete note"_s);
        QCOMPARE(closed, 1);
    }

private:
    [[nodiscard]] QAbstractButton* control(const QString& name) const
    {
        for (QAbstractButton* candidate : m_row->findChildren<QAbstractButton*>()) {
            if (candidate->accessibleName() == name)
                return candidate;
        }
        return nullptr;
    }
    void click(const QString& name) const
    {
        QAbstractButton* wanted = control(name);
        QVERIFY(wanted);
        QTest::mouseClick(wanted, Qt::LeftButton);
    }
    [[nodiscard]] QStringList checkedSwatches() const
    {
        QStringList names;
        for (const NoteSwatchButton* swatch : m_row->findChildren<NoteSwatchButton*>()) {
            if (swatch->isChecked())
                names << swatch->accessibleName();
        }
        return names;
    }

    std::optional<OpenNote> m_note;
    std::unique_ptr<QWidget> m_window;
    NoteControlRow* m_row = nullptr;
};

QTEST_MAIN(TestNoteControlRow)
#include "TestNoteControlRow.moc"
