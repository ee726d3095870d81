#include "support/main/TestMain.h"
#include "ui/controls/EmptyStateView.h"
#include "ui/controls/Tooltip.h"
#include "ui/theme/Theme.h"
#include "unit/clipboard/view/ClipboardPage.h"
#include "unit/ui/theme/ShownSymbols.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestClipboardSectionView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCursor::setPos(2000, 2000);
        m_history = std::make_unique<ClipboardHistory>();
    }

    void sectionHasItsIdTitleAndSymbol()
    {
        const ClipboardPage page(*m_history);
        QCOMPARE(page.section.id(), u"clipboard"_s);
        QCOMPARE(page.section.title(), u"Clipboard"_s);
        QCOMPARE(page.section.systemImage(), u"doc.on.clipboard"_s);
    }

    void emptyHistoryShowsTheEmptyState()
    {
        ClipboardPage page(*m_history);
        page.show();
        QCOMPARE(page.emptyState(), u"Nothing copied yet. Copy anything — it shows up here."_s);
        QVERIFY(!page.list().isVisible());
        m_history->copy(u"a"_s);
        QCOMPARE(page.emptyState(), QString());
        QVERIFY(page.list().isVisible());
    }

    void noMatchesShowTheEmptyStateWithoutASubtitle()
    {
        m_history->copy(u"a"_s);
        ClipboardPage page(*m_history);
        page.show();
        QTest::keyClicks(&page.field(), u"zz"_s);
        QCOMPARE(page.emptyState(), u"No matches"_s);
        QTest::keyClicks(&page.field(), u"\b\b"_s);
        page.press(Qt::Key_Backspace);
        page.press(Qt::Key_Backspace);
        QCOMPARE(page.emptyState(), QString());
    }

    void searchFieldHasTheFocusAndEditsTheQuery()
    {
        m_history->copy(u"Apple"_s);
        m_history->copy(u"pear"_s);
        ClipboardPage page(*m_history);
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

    void pageHasItsSymbols()
    {
        ClipboardPage page(*m_history);
        page.show();
        const auto shows = [](QWidget& widget, const QString& symbol, int size) {
            return ShownSymbols::isIn(widget, symbol, {.size = size, .color = Theme::secondary()});
        };
        const auto says = [&page](const QString& symbol) {
            return ShownSymbols::isIn(*page.page->findChild<EmptyStateView*>(), symbol,
                                      {.size = 30, .color = Theme::tertiary()});
        };
        QVERIFY(shows(*page.field().parentWidget(), u"magnifyingglass"_s, 14));
        QVERIFY(says(u"tray"_s));
        m_history->viewModel.togglePin(m_history->copy(u"a"_s));
        m_history->copy(u"b"_s);
        QTest::keyClicks(&page.field(), u"z"_s);
        QVERIFY(says(u"magnifyingglass"_s));
        QVERIFY(shows(*page.field().parentWidget(), u"xmark.circle.fill"_s, 12));
        QVERIFY(shows(page.clearUnpinned(), u"trash"_s, 12));
        QVERIFY(shows(*page.clearUnpinned().parentWidget(), u"pin.fill"_s, 10));
    }

    void showingThePageResetsIt()
    {
        for (int i = 0; i < 30; ++i)
            m_history->copy(QString::number(i));
        ClipboardPage page(*m_history);
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

    void listKeysWorkWhileTheSearchFieldHasFocus()
    {
        for (const QString& text : {u"c"_s, u"b"_s, u"a"_s})
            m_history->copy(text);
        ClipboardPage page(*m_history);
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

    void copyingFromTheSearchFieldIsNotCaptured()
    {
        m_history->copy(u"a"_s);
        ClipboardPage page(*m_history);
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

    void footerShowsTheCountsWithoutMoving()
    {
        m_history->copy(u"a"_s);
        const auto item = m_history->copy(u"b"_s);
        ClipboardPage page(*m_history);
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

    void countsPrecedeTheButtonForAssistiveTechnology()
    {
        m_history->copy(u"a"_s);
        ClipboardPage page(*m_history);
        page.show();
        const auto* footer =
            QAccessible::queryAccessibleInterface(page.clearUnpinned().parentWidget());
        QCOMPARE(footer->childCount(), 3);
        QCOMPARE(footer->child(0)->text(QAccessible::Name), u"1 total"_s);
        QCOMPARE(footer->child(2)->text(QAccessible::Name), u"Clear unpinned"_s);
    }

    void clearButtonIsEnabledWhileUnpinnedItemsExist()
    {
        ClipboardPage page(*m_history);
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

    void pageMayBeDestroyedWhileShown()
    {
        const QByteArray png = picture({10, 10});
        m_history->recognizer.texts.insert(png, u"read"_s);
        m_history->copy({.png = png});
        ClipboardPage page(*m_history);
        page.show();
        const QAccessible::Id row = QAccessible::uniqueId(&page.row(0));
        m_history->viewModel.pasteImageText(m_history->viewModel.items().front());
        delete page.page;
        QVERIFY(!QAccessible::accessibleInterface(row));
        m_history->tasks.runAll();
        QCOMPARE(m_history->pasteboard.content().text, u"read"_s);
    }

private:
    std::unique_ptr<ClipboardHistory> m_history;
};

DRIFTBOX_TEST(TestClipboardSectionView, QApplication)
#include "TestClipboardSectionView.moc"
