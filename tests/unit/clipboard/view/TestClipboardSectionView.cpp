#include "clipboard/view/ClipboardSection.h"
#include "panel/view/RowListView.h"
#include "panel/view/SearchField.h"
#include "panel/view/SymbolButton.h"
#include "panel/view/Theme.h"
#include "panel/view/Tooltip.h"
#include "unit/clipboard/ClipboardHistory.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize pageSize(451, 592);

/// The page in a window, used by mouse and keyboard and read like assistive technology does.
struct Page
{
    explicit Page(ClipboardHistory& shownHistory)
        : history(shownHistory)
    {
        page = section.makeRootView(&window);
        page->resize(pageSize);
        window.resize(pageSize);
    }
    void show()
    {
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
    }

    [[nodiscard]] RowListView& list() const { return *page->findChild<RowListView*>(); }
    [[nodiscard]] SearchField& field() const { return *page->findChild<SearchField*>(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&field(), key, modifiers);
    }
    [[nodiscard]] QLabel& label(const QString& text) const
    {
        const auto labels = page->findChildren<QLabel*>();
        const auto found =
            std::ranges::find_if(labels, [&](QLabel* label) { return label->text() == text; });
        return **found;
    }
    [[nodiscard]] SymbolButton& clearUnpinned() const
    {
        const auto buttons = page->findChildren<SymbolButton*>();
        return **std::ranges::find(buttons, u"Clear unpinned"_s, &SymbolButton::text);
    }
    /// What is said in the place of the rows.
    [[nodiscard]] QString emptyState() const
    {
        for (const QWidget* widget : page->findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->accessibleName().startsWith(u"No"_s))
                return widget->accessibleName();
        }
        return {};
    }

    [[nodiscard]] QAccessibleInterface& row(int row) const
    {
        return *QAccessible::queryAccessibleInterface(&list())->child(row);
    }
    [[nodiscard]] QStringList rowNames() const
    {
        QStringList names;
        const auto* rows = QAccessible::queryAccessibleInterface(&list());
        for (int i = 0; i < rows->childCount(); ++i)
            names << rows->child(i)->text(QAccessible::Name);
        return names;
    }
    [[nodiscard]] QStringList buttonNames(int of) const
    {
        QStringList names;
        for (int i = 0; i < row(of).childCount(); ++i)
            names << row(of).child(i)->text(QAccessible::Name);
        return names;
    }
    [[nodiscard]] QAccessibleInterface& button(int of, const QString& name) const
    {
        return *row(of).child(int(buttonNames(of).indexOf(name)));
    }
    static void activate(QAccessibleInterface& element)
    {
        element.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    /// Moves there and clicks.
    void click(const QAccessibleInterface& element) const
    {
        const QPoint place = list().viewport()->mapFromGlobal(element.rect().center());
        QTest::mouseMove(list().viewport(), place);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place);
    }
    [[nodiscard]] QImage picture() const { return page->grab().toImage(); }

    ClipboardHistory& history;
    std::vector<ClipboardItem> notes;
    ClipboardSection section{history.viewModel, history.clock,
                             [this](const ClipboardItem& item) { notes.push_back(item); }};
    QWidget window;
    QWidget* page;
};

} // namespace

class TestClipboardSectionView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCursor::setPos(2000, 2000);
        m_history = std::make_unique<ClipboardHistory>();
    }

    void theSectionIntroducesItself()
    {
        const Page page(*m_history);
        QCOMPARE(page.section.id(), u"clipboard"_s);
        QCOMPARE(page.section.title(), u"Clipboard"_s);
        QCOMPARE(page.section.systemImage(), u"doc.on.clipboard"_s);
    }

    void withNothingCopiedThePageSaysSo()
    {
        Page page(*m_history);
        page.show();
        QCOMPARE(page.emptyState(), u"Nothing copied yet. Copy anything — it shows up here."_s);
        QVERIFY(!page.list().isVisible());
        m_history->copy(u"a"_s);
        QCOMPARE(page.emptyState(), QString());
        QVERIFY(page.list().isVisible());
    }

    void withoutMatchesThePageSaysSoWithoutASubtitle()
    {
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        QTest::keyClicks(&page.field(), u"zz"_s);
        QCOMPARE(page.emptyState(), u"No matches"_s);
        QTest::keyClicks(&page.field(), u"\b\b"_s);
        page.press(Qt::Key_Backspace);
        page.press(Qt::Key_Backspace);
        QCOMPARE(page.emptyState(), QString());
    }

    void theSearchFieldHasTheFocusAndEditsTheQuery()
    {
        m_history->copy(u"Apple"_s);
        m_history->copy(u"pear"_s);
        Page page(*m_history);
        page.show();
        QCOMPARE(page.field().placeholderText(), u"Search clipboard"_s);
        QCOMPARE(page.field().font().pixelSize(), 14);
        QCOMPARE(page.window.focusWidget(), &page.field());
        QTest::keyClicks(&page.field(), u"app"_s);
        QCOMPARE(m_history->viewModel.query(), u"app"_s);
        QCOMPARE(page.rowNames(), QStringList(u"Text: Apple"_s));
        m_history->viewModel.setQuery({});
        QCOMPARE(page.field().text(), QString());
    }

    void everyShowingStartsOver()
    {
        for (int i = 0; i < 30; ++i)
            m_history->copy(QString::number(i));
        Page page(*m_history);
        page.show();
        page.press(Qt::Key_End);
        QVERIFY(page.list().verticalScrollBar()->value() > 0);
        QTest::keyClicks(&page.field(), u"1"_s);
        page.window.hide();
        page.show();
        QCOMPARE(page.field().text(), QString());
        QCOMPARE(m_history->viewModel.query(), QString());
        QCOMPARE(page.list().selectedRow(), 0);
        QCOMPARE(page.list().verticalScrollBar()->value(), 0);
        QCOMPARE(page.window.focusWidget(), &page.field());
    }

    void keysAreTheListsWhileTheFieldHasTheTyping()
    {
        for (const QString& text : {u"c"_s, u"b"_s, u"a"_s})
            m_history->copy(text);
        Page page(*m_history);
        page.show();
        page.press(Qt::Key_Down);
        QCOMPARE(page.list().selectedRow(), 1);
        page.press(Qt::Key_Delete);
        QCOMPARE(page.rowNames(), QStringList({u"Text: a"_s, u"Text: c"_s}));
        QCOMPARE(page.list().selectedRow(), 1);
        page.press(Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(m_history->viewModel.pinnedCount(), 1);
        page.press(Qt::Key_Return);
        QCOMPARE(m_history->pasteboard.content().text, u"c"_s);
        QCOMPARE(m_history->posted.count(), 1);
        QTest::keyClicks(&page.field(), u"a"_s);
        QCOMPARE(page.list().selectedRow(), 0);
        page.press(Qt::Key_Delete);
        QCOMPARE(m_history->viewModel.items().size(), size_t(2));
    }

    void copyingInTheFieldIsNoCapture()
    {
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        QTest::keyClicks(&page.field(), u"query"_s);
        page.field().selectAll();
        QTest::keySequence(&page.field(), QKeySequence::Copy);
        QCOMPARE(m_history->pasteboard.content().text, u"query"_s);
        m_history->monitor.tick();
        QCOMPARE(m_history->viewModel.items().size(), size_t(1));
        m_history->pasteboard.copy({.text = u" pasted"_s});
        page.press(Qt::Key_End);
        QTest::keySequence(&page.field(), QKeySequence::Paste);
        QCOMPARE(m_history->viewModel.query(), u"query pasted"_s);
    }

    void theFooterCounts()
    {
        m_history->copy(u"a"_s);
        const auto item = m_history->copy(u"b"_s);
        Page page(*m_history);
        page.show();
        QTest::keyClicks(&page.field(), u"b"_s);
        QVERIFY(page.label(u"2 total"_s).isVisible());
        QVERIFY(!page.label(u"0 pinned"_s).isVisible());

        const QRect total = page.label(u"2 total"_s).geometry();
        const QRect pinned = page.label(u"0 pinned"_s).geometry();
        const QRect button = page.clearUnpinned().geometry();
        m_history->viewModel.togglePin(item);
        QApplication::processEvents();
        QVERIFY(page.label(u"1 pinned"_s).isVisible());
        QCOMPARE(page.label(u"2 total"_s).geometry(), total);
        QCOMPARE(page.label(u"1 pinned"_s).geometry().topLeft(), pinned.topLeft());
        QCOMPARE(page.clearUnpinned().geometry(), button);
    }

    void clearingIsOfferedWhileThereIsSomethingUnpinned()
    {
        Page page(*m_history);
        page.show();
        QVERIFY(!page.clearUnpinned().isEnabled());
        QCOMPARE(page.clearUnpinned().toolTip(), u"Clear all unpinned items"_s);
        QCOMPARE(page.clearUnpinned().accessibleName(), u"Clear unpinned"_s);
        m_history->viewModel.togglePin(m_history->copy(u"a"_s));
        QVERIFY(!page.clearUnpinned().isEnabled());
        m_history->copy(u"b"_s);
        QVERIFY(page.clearUnpinned().isEnabled());
        QTest::mouseClick(&page.clearUnpinned(), Qt::LeftButton);
        QCOMPARE(page.rowNames(), QStringList(u"Text: a"_s));
        QVERIFY(!page.clearUnpinned().isEnabled());
    }

    void rowsAreSpokenAsTheirPreview()
    {
        m_history->copy({.png = picture({10, 10})});
        m_history->copy(u"   "_s);
        m_history->copy(u" two\nlines "_s);
        Page page(*m_history);
        page.show();
        const QStringList names = page.rowNames();
        QCOMPARE(names.size(), 3);
        QCOMPARE(names[0], u"Text: two\nlines"_s);
        QCOMPARE(names[1], u"Text:    "_s);
        QVERIFY(names[2].startsWith(u"Image, "_s));
        QCOMPARE(page.row(0).role(), QAccessible::ListItem);
        QCOMPARE(page.row(0).text(QAccessible::Description), u"Click to paste at the caret"_s);
    }

    void rowsHaveTheirHeights()
    {
        m_history->copy({.png = picture({10, 10})});
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        QCOMPARE(page.list().rowRect(0).height(), 52 + 1);
        QCOMPARE(page.list().rowRect(1).height(), 76 + 1);
        QCOMPARE(page.list().rowRect(0).width(), pageSize.width());
    }

    void plainPastingIsOfferedForRichTextOnly()
    {
        m_history->copy(u"plain"_s);
        m_history->copy({.text = u"rich"_s, .rtf = QByteArray("{}")});
        m_history->copy({.png = picture({10, 10})});
        Page page(*m_history);
        page.show();
        const QString pin = u"Pin (survives clear & reboot)"_s;
        QCOMPARE(page.buttonNames(0), QStringList({u"Paste text in image (OCR)"_s,
                                                   u"Make a sticky note"_s, u"Delete"_s, pin}));
        QCOMPARE(page.buttonNames(1), QStringList({u"Paste as plain text"_s,
                                                   u"Make a sticky note"_s, u"Delete"_s, pin}));
        QCOMPARE(page.buttonNames(2), QStringList({u"Make a sticky note"_s, u"Delete"_s, pin}));

        page.click(page.button(1, u"Paste as plain text"_s));
        QVERIFY(m_history->pasteboard.content() == PasteboardContent{.text = u"rich"_s});
        QCOMPARE(m_history->posted.count(), 1);
    }

    void clicksDoWhatIsUnderThem()
    {
        m_history->copy(u"b"_s);
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        page.click(page.button(1, u"Make a sticky note"_s));
        QCOMPARE(page.notes.size(), size_t(1));
        QCOMPARE(page.notes.front().textContent, u"b"_s);
        page.click(page.button(1, u"Pin (survives clear & reboot)"_s));
        QCOMPARE(m_history->viewModel.pinnedCount(), 1);
        QCOMPARE(page.buttonNames(1).last(), u"Unpin"_s);
        page.click(page.button(0, u"Delete"_s));
        QCOMPARE(m_history->texts(), QStringList(u"b"_s));
        QCOMPARE(m_history->posted.count(), 0);
        page.click(page.row(0));
        QCOMPARE(m_history->posted.count(), 1);
        QCOMPARE(m_history->pasteboard.content().text, u"b"_s);
    }

    void everyButtonCanBePressedWithoutAPointer()
    {
        m_history->copy(u"b"_s);
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        Page::activate(page.button(1, u"Make a sticky note"_s));
        QCOMPARE(page.notes.size(), size_t(1));
        Page::activate(page.button(1, u"Pin (survives clear & reboot)"_s));
        Page::activate(page.button(1, u"Unpin"_s));
        QCOMPARE(m_history->viewModel.pinnedCount(), 0);
        Page::activate(page.button(0, u"Delete"_s));
        QCOMPARE(page.rowNames(), QStringList(u"Text: b"_s));
        Page::activate(page.row(0));
        QCOMPARE(m_history->posted.count(), 1);
    }

    void whileAPictureIsReadItsButtonIsBusyAndOthersAreNot()
    {
        const QString recognize = u"Paste text in image (OCR)"_s;
        m_history->copy({.png = picture({10, 10})});
        m_history->copy({.png = picture({20, 10})});
        Page page(*m_history);
        page.show();
        (void)page.picture();
        m_history->tasks.runAll();

        page.click(page.button(0, recognize));
        QCOMPARE(m_history->tasks.pending(), size_t(1));
        QVERIFY(page.button(0, recognize).state().disabled);
        QVERIFY(!page.button(1, recognize).state().disabled);
        const QImage busy = page.picture();
        QTRY_VERIFY(page.picture() != busy); // it turns

        page.click(page.button(0, recognize));
        Page::activate(page.button(0, recognize));
        QCOMPARE(m_history->tasks.pending(), size_t(1));
        QCOMPARE(m_history->posted.count(), 0);
        page.click(page.button(1, recognize));
        QCOMPARE(m_history->tasks.pending(), size_t(2));
        m_history->tasks.runAll();
        QVERIFY(!page.button(0, recognize).state().disabled);
    }

    void aBusyRowThatGoesIsNoMatter()
    {
        m_history->copy({.png = picture({10, 10})});
        Page page(*m_history);
        page.show();
        m_history->viewModel.pasteImageText(m_history->viewModel.items().front());
        m_history->viewModel.remove(m_history->viewModel.items().front());
        QTest::qWait(100); // the indicator would turn twice
        m_history->tasks.runAll();
        QVERIFY(page.rowNames().isEmpty());
    }

    void thePinIsOrangeWhilePinned()
    {
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        QVERIFY(!hasColor(page, 0, Theme::pinOn()));
        m_history->viewModel.togglePin(m_history->viewModel.items().front());
        QVERIFY(hasColor(page, 0, Theme::pinOn()));
    }

    void actionsShowOnlyInTheRowThatIsPointedAtOrSelected()
    {
        for (const QString& text : {u"c"_s, u"b"_s, u"a"_s})
            m_history->copy(text);
        Page page(*m_history);
        page.show();
        const QString remove = u"Delete"_s;
        QVERIFY(!page.button(0, remove).state().invisible);
        QVERIFY(page.button(1, remove).state().invisible);
        QVERIFY(!page.button(1, u"Pin (survives clear & reboot)"_s).state().invisible);
        QTest::mouseMove(page.list().viewport(), page.list().rowRect(2).center());
        QVERIFY(!page.button(2, remove).state().invisible);
        QVERIFY(page.button(1, remove).state().invisible);
        QCOMPARE(page.row(0).state().selected, true);
        page.press(Qt::Key_Down);
        QCOMPARE(page.row(1).state().selected, true);
        QVERIFY(!page.button(1, remove).state().invisible);
        QVERIFY(page.button(0, remove).state().invisible);
    }

    void thePageMayGoWhileItIsShown()
    {
        m_history->copy({.png = picture({10, 10})});
        Page page(*m_history);
        page.show();
        (void)page.rowNames();
        m_history->viewModel.pasteImageText(m_history->viewModel.items().front());
        delete page.page;
        m_history->copy(u"a"_s);
        m_history->tasks.runAll();
    }

    void elementsOfRowsThatAreGoneAreGoneToo()
    {
        m_history->copy(u"b"_s);
        m_history->copy(u"a"_s);
        Page page(*m_history);
        page.show();
        const QAccessible::Id row = QAccessible::uniqueId(&page.row(0));
        const QAccessible::Id button = QAccessible::uniqueId(page.row(0).child(0));
        const QAccessible::Id other = QAccessible::uniqueId(&page.row(1));
        m_history->viewModel.remove(m_history->viewModel.items().front());
        QVERIFY(!QAccessible::accessibleInterface(row));
        QVERIFY(!QAccessible::accessibleInterface(button));
        QCOMPARE(QAccessible::accessibleInterface(other), &page.row(0));
        m_history->viewModel.setQuery(u"b"_s);
        QVERIFY(!QAccessible::accessibleInterface(other));
    }

private:
    static bool hasColor(const Page& page, int row, const QColor& color)
    {
        const QImage image = page.list().viewport()->grab().toImage();
        const QRect area = page.list().rowRect(row);
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (image.pixelColor(x, y) == color)
                    return true;
            }
        }
        return false;
    }

    std::unique_ptr<ClipboardHistory> m_history;
};

QTEST_MAIN(TestClipboardSectionView)
#include "TestClipboardSectionView.moc"
