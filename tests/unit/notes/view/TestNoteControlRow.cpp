#include "notes/view/NoteButton.h"
#include "notes/view/NoteControlRow.h"
#include "notes/view/NotePaper.h"
#include "support/main/TestMain.h"
#include "ui/theme/Symbols.h"
#include "unit/notes/view/OpenNote.h"

#include <optional>

#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(driftbox::Symbols::Weight)

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

    void controlsAreInOrder()
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

    void controlsFitTheSmallestNote()
    {
        m_row->setPresent(true);
        m_row->resize(144, NoteControlRow::preferredHeight);
        QTRY_VERIFY(m_row->isVisible());
        QRect last;
        QList<QAbstractButton*> controls = m_row->findChildren<QAbstractButton*>();
        QCOMPARE(controls.size(), 8);
        std::ranges::sort(controls, {}, [](const QWidget* control) { return control->x(); });
        for (const QAbstractButton* control : controls) {
            QVERIFY(!control->geometry().intersects(last));
            QVERIFY(m_row->rect().contains(control->geometry()));
            last = control->geometry();
        }
    }

    void controlsFadeInAndOut()
    {
        QVERIFY(!m_row->isVisible());
        m_row->setPresent(true);
        QTRY_VERIFY(m_row->isVisible());
        m_row->setPresent(false);
        QTRY_VERIFY(!m_row->isVisible());
    }

    void fadingTakes150Milliseconds()
    {
        const auto* fading = m_row->findChild<QVariantAnimation*>();
        QCOMPARE(fading->duration(), 150);
        QCOMPARE(fading->easingCurve().type(), QEasingCurve::InOutQuad);
    }

    void controlsHaveTheirSymbols_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<int>("size");
        QTest::addColumn<Symbols::Weight>("weight");
        const auto row = [](const QString& name, const QString& symbol, int size,
                            Symbols::Weight weight) {
            QTest::newRow(qPrintable(symbol)) << name << symbol << size << weight;
        };
        row(u"Save"_s, u"bookmark"_s, 13, Symbols::Weight::regular);
        row(u"Unsave — note becomes a draft (deleted on close)"_s, u"bookmark.fill"_s, 13,
            Symbols::Weight::regular);
        row(u"Copy to clipboard"_s, u"doc.on.doc"_s, 13, Symbols::Weight::regular);
        row(u"New note"_s, u"plus"_s, 12, Symbols::Weight::semibold);
        row(u"Delete note"_s, u"xmark"_s, 10, Symbols::Weight::bold);
    }
    void controlsHaveTheirSymbols()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, symbol);
        QFETCH(const int, size);
        QFETCH(const Symbols::Weight, weight);
        m_row->setPresent(true);
        QTRY_VERIFY(m_row->isVisible());
        if (!control(name))
            click(u"Save"_s);
        QAbstractButton* button = control(name);
        QImage expected(button->size(), QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        QImage shown = expected;
        QPainter painter(&expected);
        Symbols::paint(painter, button->rect(), symbol,
                       {.size = size, .color = NotePaper::symbol(), .weight = weight});
        button->render(&shown, {}, {}, QWidget::RenderFlags());
        QCOMPARE(shown, expected);
    }

    void swatchOfTheNotesColorIsChecked()
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

    void saveButtonTogglesTheSavedState()
    {
        m_row->setPresent(true);
        click(u"Save"_s);
        QVERIFY(m_note->viewModel.isSaved());
        QVERIFY(!control(u"Save"_s));
        click(u"Unsave — note becomes a draft (deleted on close)"_s);
        QVERIFY(!m_note->viewModel.isSaved());
        QVERIFY(control(u"Save"_s));
    }

    void otherControlsTriggerTheirActions()
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

DRIFTBOX_TEST(TestNoteControlRow, QApplication)
#include "TestNoteControlRow.moc"
