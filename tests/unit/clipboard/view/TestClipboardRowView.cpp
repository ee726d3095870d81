#include "support/main/TestMain.h"
#include "ui/theme/Theme.h"
#include "unit/clipboard/view/ClipboardPage.h"
#include "unit/ui/theme/ShownSymbols.h"

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestClipboardRowView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCursor::setPos(2000, 2000);
        m_history = std::make_unique<ClipboardHistory>();
    }

    void rowsAreNamedByTheirPreview()
    {
        m_history->copy({.png = picture({10, 10})});
        m_history->copy(u"   "_s);
        m_history->copy(u" two\nlines "_s);
        ClipboardPage page(*m_history);
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
        ClipboardPage page(*m_history);
        page.show();
        QCOMPARE(page.list().rowRect(0).height(), 52 + 1);
        QCOMPARE(page.list().rowRect(1).height(), 76 + 1);
        QCOMPARE(page.list().rowRect(0).width(), ClipboardPage::pageSize.width());
    }

    void plainPastingIsOfferedForRichTextOnly()
    {
        m_history->copy(u"plain"_s);
        m_history->copy({.text = u"rich"_s, .rtf = QByteArray("{}")});
        m_history->copy({.png = picture({10, 10})});
        ClipboardPage page(*m_history);
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

    void actionsHaveTheirSymbols()
    {
        m_history->copy({.png = picture({10, 10})});
        m_history->copy({.text = u"rich"_s, .rtf = QByteArray("{}")});
        ClipboardPage page(*m_history);
        page.show();
        const auto shows = [&page](int row, const QString& symbol) {
            return ShownSymbols::isIn(*page.list().viewport(), symbol,
                                      {.size = 13, .color = Theme::secondary()},
                                      page.list().rowRect(row));
        };
        for (const auto& symbol : {u"doc.plaintext"_s, u"note.text"_s, u"trash"_s}) {
            QVERIFY2(shows(0, symbol), qPrintable(symbol)); // the selected one
            QVERIFY2(!shows(1, symbol), qPrintable(symbol));
        }
        page.press(Qt::Key_Down);
        for (const auto& symbol : {u"text.viewfinder"_s, u"note.text"_s, u"trash"_s})
            QVERIFY2(shows(1, symbol), qPrintable(symbol));
        QVERIFY(!shows(1, u"doc.plaintext"_s));
    }

    void clickTriggersTheElementUnderThePointer()
    {
        m_history->copy(u"b"_s);
        m_history->copy(u"a"_s);
        ClipboardPage page(*m_history);
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
        ClipboardPage page(*m_history);
        page.show();
        ClipboardPage::activate(page.button(1, u"Make a sticky note"_s));
        QCOMPARE(page.notes.size(), size_t(1));
        ClipboardPage::activate(page.button(1, u"Pin (survives clear & reboot)"_s));
        ClipboardPage::activate(page.button(1, u"Unpin"_s));
        QCOMPARE(m_history->viewModel.pinnedCount(), 0);
        ClipboardPage::activate(page.button(0, u"Delete"_s));
        QCOMPARE(page.rowNames(), QStringList(u"Text: b"_s));
        ClipboardPage::activate(page.row(0));
        QCOMPARE(m_history->posted.count(), 1);
    }

    void onlyTheButtonOfThePictureBeingReadIsBusy()
    {
        const QString recognize = u"Paste text in image (OCR)"_s;
        m_history->copy({.png = picture({10, 10})});
        m_history->copy({.png = picture({20, 10})});
        ClipboardPage page(*m_history);
        page.show();
        (void)page.picture();
        m_history->tasks.runAll();

        page.click(page.button(0, recognize));
        QCOMPARE(m_history->tasks.pending(), size_t(1));
        QVERIFY(page.button(0, recognize).state().disabled);
        QVERIFY(!page.button(1, recognize).state().disabled);
        const QImage busy = page.picture();
        QTRY_VERIFY(page.picture() != busy); // the indicator turns

        page.click(page.button(0, recognize));
        ClipboardPage::activate(page.button(0, recognize));
        QCOMPARE(m_history->tasks.pending(), size_t(1));
        QCOMPARE(m_history->posted.count(), 0);
        page.click(page.button(1, recognize));
        QCOMPARE(m_history->tasks.pending(), size_t(2));
        m_history->tasks.runAll();
        QVERIFY(!page.button(0, recognize).state().disabled);
    }

    void busyRowMayBeRemoved()
    {
        m_history->copy({.png = picture({10, 10})});
        ClipboardPage page(*m_history);
        page.show();
        m_history->viewModel.pasteImageText(m_history->viewModel.items().front());
        m_history->viewModel.remove(m_history->viewModel.items().front());
        QTest::qWait(100); // the indicator would turn twice
        m_history->tasks.runAll();
        QVERIFY(page.rowNames().isEmpty());
    }

    void pinIsOrangeWhilePinned()
    {
        const QColor orange(0xf0, 0x86, 0x00);
        m_history->copy(u"a"_s);
        ClipboardPage page(*m_history);
        page.show();
        const auto showsPin = [&page](const QColor& color) {
            return ShownSymbols::isIn(*page.list().viewport(), u"pin.fill"_s,
                                      {.size = 13, .color = color}, page.list().rowRect(0));
        };
        QVERIFY(showsPin(Theme::withOpacity(Theme::tertiary(), 0.55)));
        QVERIFY(!showsPin(orange));
        m_history->viewModel.togglePin(m_history->viewModel.items().front());
        QVERIFY(showsPin(orange));
    }

    void actionsShowOnlyInTheHoveredOrSelectedRow()
    {
        for (const QString& text : {u"c"_s, u"b"_s, u"a"_s})
            m_history->copy(text);
        ClipboardPage page(*m_history);
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

    void accessibleElementsOfRemovedRowsAreRemoved()
    {
        m_history->copy(u"b"_s);
        m_history->copy(u"a"_s);
        ClipboardPage page(*m_history);
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
    std::unique_ptr<ClipboardHistory> m_history;
};

DRIFTBOX_TEST(TestClipboardRowView, QApplication)
#include "TestClipboardRowView.moc"
