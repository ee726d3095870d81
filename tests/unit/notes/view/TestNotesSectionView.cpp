#include "notes/view/NotesSection.h"
#include "support/main/TestMain.h"
#include "ui/controls/CountLabel.h"
#include "ui/controls/EmptyStateView.h"
#include "ui/controls/SearchField.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/Tooltip.h"
#include "ui/theme/Theme.h"
#include "unit/notes/NotesDesk.h"
#include "unit/ui/list/ShownRows.h"
#include "unit/ui/theme/ShownSymbols.h"

#include <memory>

#include <QtGui/QHelpEvent>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize pageSize(451, 592);

/// The page in a window, used by mouse and keyboard and read like assistive technology does.
struct Page
{
    Page()
    {
        page = section.makeRootView(&window);
        page->resize(pageSize);
        window.resize(pageSize);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
    }

    [[nodiscard]] NoteManager& manager() const { return *desk.manager; }
    [[nodiscard]] RowListView& list() const { return *page->findChild<RowListView*>(); }
    [[nodiscard]] SearchField& field() const { return *page->findChild<SearchField*>(); }
    [[nodiscard]] QString count() const { return page->findChild<CountLabel*>()->text(); }
    [[nodiscard]] QString emptyState() const
    {
        const auto* view = page->findChild<EmptyStateView*>();
        return view->isVisible() ? view->accessibleName() : QString();
    }
    [[nodiscard]] SymbolButton& button(const QString& name) const
    {
        const auto buttons = page->findChildren<SymbolButton*>();
        return **std::ranges::find(buttons, name, &SymbolButton::accessibleName);
    }
    [[nodiscard]] QStringList rowNames() const { return ShownRows::names(list()); }
    [[nodiscard]] QAccessibleInterface& action(int row, const QString& name) const
    {
        return ShownRows::button(list(), row, name);
    }
    void click(QPoint place) const { ShownRows::click(list(), place); }
    void clickAction(int row, const QString& name) const
    {
        ShownRows::click(list(), action(row, name));
    }

    /// Whether a row shows this symbol in the color of symbols.
    [[nodiscard]] bool showsSymbol(const QString& name, int size, int row = 0) const
    {
        constexpr int rowHeight = 53;
        return ShownSymbols::isIn(*list().viewport(), name,
                                  {.size = size, .color = Theme::secondary()},
                                  {0, row * rowHeight, pageSize.width(), rowHeight});
    }
    /// Whether the page shows it in the place of rows.
    [[nodiscard]] bool showsLargeSymbol(const QString& name) const
    {
        return ShownSymbols::isIn(*page->findChild<EmptyStateView*>(), name,
                                  {.size = 30, .color = Theme::tertiary()});
    }
    [[nodiscard]] bool showsOnButton(const QString& button, const QString& name) const
    {
        return ShownSymbols::isIn(this->button(button), name,
                                  {.size = 12, .color = Theme::secondary()});
    }

    NotesDesk desk;
    NotesSection section{*desk.manager, textExchange(desk.pasteboard, desk.writer)};
    QWidget window;
    QWidget* page;
};

} // namespace

class TestNotesSectionView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCursor::setPos(2000, 2000);
        m_page = std::make_unique<Page>();
    }
    void cleanup() { m_page.reset(); }

    void sectionHasItsIdTitleAndSymbol()
    {
        QCOMPARE(m_page->section.id(), u"notes"_s);
        QCOMPARE(m_page->section.title(), u"Notes"_s);
        QCOMPARE(m_page->section.systemImage(), u"note.text"_s);
        QCOMPARE(m_page->field().placeholderText(), u"Search notes"_s);
    }

    void emptyStateExplainsHowToMakeANote()
    {
        QCOMPARE(m_page->emptyState(), u"No notes yet. Click + or a clipboard item to make one."_s);
        QCOMPARE(m_page->count(), u"0 notes"_s);
        QVERIFY(!m_page->list().isVisible());
        QTest::keyClicks(&m_page->field(), u"x"_s);
        QCOMPARE(m_page->emptyState().first(12), u"No notes yet"_s);
    }

    void newNoteButtonMakesANote()
    {
        SymbolButton& button = m_page->button(u"New sticky note"_s);
        QCOMPARE(button.toolTip(), u"New sticky note"_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(m_page->manager().notes().size(), size_t(1));
        QCOMPARE(m_page->rowNames(), QStringList(u"(empty)"_s));
        QCOMPARE(m_page->count(), u"1 note"_s);
        QCOMPARE(m_page->emptyState(), QString());
    }

    void rowsFollowTheQuery()
    {
        m_page->desk.open(u"Buy MILK"_s);
        m_page->desk.open(u"call home"_s);
        QTest::keyClicks(&m_page->field(), u"milk"_s);
        QCOMPARE(m_page->rowNames(), QStringList(u"Buy MILK"_s));
        QCOMPARE(m_page->count(), u"2 notes"_s);
        QTest::keyClicks(&m_page->field(), u"y"_s);
        QCOMPARE(m_page->emptyState(), u"No matches"_s);
        QTest::mouseClick(&m_page->button(u"Clear search"_s), Qt::LeftButton);
        QCOMPARE(m_page->rowNames().size(), 2);
        QCOMPARE(m_page->field().text(), QString());
    }

    void clickingARowRaisesTheNote()
    {
        const StickyNoteId id = m_page->desk.openSaved(u"a"_s).note().id;
        m_page->manager().closeAll();
        m_page->click({100, 20});
        QVERIFY(m_page->manager().isOpen(id));
    }

    void rowActionsCopyAndDelete()
    {
        m_page->desk.open(u"text"_s);
        m_page->clickAction(0, u"Copy to clipboard"_s);
        QCOMPARE(m_page->desk.pasteboard.content().text, u"text"_s);
        QVERIFY(m_page->desk.lastSurface().isVisible());
        m_page->clickAction(0, u"Delete note"_s);
        QVERIFY(m_page->manager().notes().empty());
    }

    void closingAllKeepsTheSavedNotes()
    {
        m_page->desk.open(u"draft"_s);
        m_page->desk.openSaved(u"saved"_s);
        SymbolButton& button = m_page->button(u"Close all"_s);
        QCOMPARE(button.toolTip(), u"Close and delete every note"_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(m_page->rowNames(), QStringList(u"saved"_s));
    }

    void listKeysWorkWhileTheSearchFieldHasFocus()
    {
        m_page->desk.openSaved(u"a"_s);
        m_page->desk.openSaved(u"b"_s);
        m_page->manager().closeAll();
        QTest::keyClick(&m_page->field(), Qt::Key_Down);
        QTest::keyClick(&m_page->field(), Qt::Key_Return);
        QCOMPARE(m_page->desk.windows.last->viewModel.text(), u"a"_s);
    }

    void rowShowsItsNotesColor()
    {
        m_page->desk.open(u"a"_s).setColor(NoteColor::blue);
        const QImage picture = m_page->list().viewport()->grab().toImage();
        QCOMPARE(picture.pixel(20, 26), Theme::noteSwatch(NoteColor::blue).rgb());
    }

    void pageHasItsSymbols()
    {
        QVERIFY(m_page->showsOnButton(u"New sticky note"_s, u"plus"_s));
        QVERIFY(m_page->showsOnButton(u"Close all"_s, u"xmark.circle"_s));
        QVERIFY(m_page->showsLargeSymbol(u"note.text"_s));
        m_page->desk.open(u"a"_s);
        QTest::keyClicks(&m_page->field(), u"b"_s);
        QVERIFY(m_page->showsLargeSymbol(u"magnifyingglass"_s));
        QVERIFY(m_page->showsOnButton(u"Clear search"_s, u"xmark.circle.fill"_s));
        QTest::keyClick(&m_page->field(), Qt::Key_Backspace);
        QVERIFY(!m_page->button(u"Clear search"_s).isVisible());
    }

    void rowShowsTheSymbolOfTheNotesKind()
    {
        m_page->desk.open(u"draft"_s);
        QVERIFY(m_page->showsSymbol(u"doc.text"_s, 13));
        QVERIFY(!m_page->showsSymbol(u"photo"_s, 13));
        QVERIFY(!m_page->showsSymbol(u"bookmark.fill"_s, 11));
        m_page->desk.windows.last->viewModel.toggleSaved();
        QVERIFY(m_page->showsSymbol(u"bookmark.fill"_s, 11));
        m_page->manager().remove(m_page->manager().notes().front().id);
        m_page->manager().createNote(picture({4, 4}));
        QVERIFY(m_page->showsSymbol(u"photo"_s, 13));
        QVERIFY(!m_page->showsSymbol(u"doc.text"_s, 13));
    }

    void actionsShowOnlyInTheHoveredOrSelectedRow()
    {
        m_page->desk.open(u"a"_s);
        m_page->desk.open(u"b"_s);
        QVERIFY(m_page->showsSymbol(u"trash"_s, 13, 0)); // is selected
        QVERIFY(!m_page->showsSymbol(u"trash"_s, 13, 1));
        QVERIFY(!m_page->showsSymbol(u"doc.on.doc"_s, 13, 1));
        QTest::mouseMove(m_page->list().viewport(), {100, 53 + 20});
        QVERIFY(m_page->showsSymbol(u"trash"_s, 13, 1));
        QVERIFY(m_page->showsSymbol(u"doc.on.doc"_s, 13, 1));
    }

    void rowHasItsHelp()
    {
        m_page->desk.open(u"a"_s);
        QTest::mouseMove(m_page->list().viewport(), {100, 20});
        QHelpEvent event(QEvent::ToolTip, {100, 20}, {});
        QCoreApplication::sendEvent(m_page->list().viewport(), &event);
        QCOMPARE(Tooltip::shownText(m_page->window), u"Click to bring the note to the front"_s);
    }

    void rowShowsTheTextWhileItIsTyped()
    {
        StickyNoteViewModel& note = m_page->desk.open(u"a"_s);
        const QImage before = m_page->list().viewport()->grab().toImage();
        note.setText(u"completely different"_s);
        QVERIFY(m_page->list().viewport()->grab().toImage() != before);
    }

    void searchFieldUsesTheProgramsPasteboard()
    {
        m_page->desk.pasteboard.copy({.text = u"pasted"_s});
        QTest::keyClick(&m_page->field(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_page->field().text(), u"pasted"_s);
        QTest::keyClick(&m_page->field(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&m_page->field(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(m_page->desk.pasteboard.content().text, u"pasted"_s);
        QCOMPARE(m_page->desk.pasteboard.writes, 1);
    }

    void showingThePageResetsIt()
    {
        for (int i = 0; i < 30; ++i)
            m_page->desk.open(QString::number(i));
        QTest::keyClicks(&m_page->field(), u"1"_s);
        m_page->window.hide();
        m_page->window.show();
        QCOMPARE(m_page->field().text(), QString());
        QCOMPARE(m_page->rowNames().size(), 30);
        QCOMPARE(m_page->list().selectedRow(), 0);
    }

private:
    std::unique_ptr<Page> m_page;
};

DRIFTBOX_TEST(TestNotesSectionView, QApplication)
#include "TestNotesSectionView.moc"
