#include "clipboard/ClipboardKeyboard.h"
#include "clipboard/ClipboardListModel.h"
#include "clipboard/ClipboardRowActions.h"
#include "core/RowSelection.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/ClipboardHistory.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr int rowsPerPage = 3;

/// The panel's page without its widgets. At first the texts a to f are there, a in front.
struct Page
{
    Page()
    {
        for (const QChar letter : u"fedcba"_s)
            history.copy(QString(letter));
    }

    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        return keyboard.handle({key, modifiers}, rowsPerPage);
    }
    bool repeat(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        return keyboard.handle({key, modifiers, true}, rowsPerPage);
    }
    [[nodiscard]] QString selected() const
    {
        return selection.row() < 0 ? QString() : rows.item(selection.row()).textContent.value();
    }
    [[nodiscard]] PasteboardContent pasted() const
    {
        return history.posted.isEmpty() ? PasteboardContent() : history.pasteboard.content();
    }

    ClipboardHistory history;
    ClipboardListModel rows{history.viewModel, history.clock};
    RowSelection selection{rows};
    std::vector<ClipboardItem> notes;
    ClipboardRowActions actions{history.viewModel,
                                [this](const ClipboardItem& item) { notes.push_back(item); }};
    ClipboardKeyboard keyboard{history.viewModel, rows, selection, actions};
};

} // namespace

class TestClipboardKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arrowsAndPageKeysMoveTheSelectionDespiteAQuery()
    {
        for (const QString& query : {u""_s, u" "_s}) {
            Page page;
            page.history.viewModel.setQuery(query);
            QVERIFY(page.press(Qt::Key_Down));
            QCOMPARE(page.selected(), u"b"_s);
            QVERIFY(page.repeat(Qt::Key_Down));
            QCOMPARE(page.selected(), u"c"_s);
            QVERIFY(page.press(Qt::Key_Up));
            QCOMPARE(page.selected(), u"b"_s);
            QVERIFY(page.press(Qt::Key_PageDown));
            QCOMPARE(page.selected(), u"e"_s);
            QVERIFY(page.press(Qt::Key_PageDown));
            QCOMPARE(page.selected(), u"f"_s);
            QVERIFY(page.press(Qt::Key_PageUp, Qt::KeypadModifier));
            QCOMPARE(page.selected(), u"c"_s);
            QVERIFY(page.press(Qt::Key_PageUp));
            QCOMPARE(page.selected(), u"a"_s);
        }
    }

    void homeAndEndGoToANonEmptySearchField()
    {
        Page page;
        QVERIFY(page.press(Qt::Key_End));
        QCOMPARE(page.selected(), u"f"_s);
        QVERIFY(page.press(Qt::Key_Home));
        QCOMPARE(page.selected(), u"a"_s);
        page.history.viewModel.setQuery(u" "_s);
        QVERIFY(!page.press(Qt::Key_End));
        QVERIFY(!page.press(Qt::Key_Home));
        QCOMPARE(page.selected(), u"a"_s);
    }

    void enterPicksTheSelectedItem()
    {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            Page page;
            page.press(Qt::Key_Down);
            QVERIFY(page.press(key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier));
            QVERIFY(page.pasted() == PasteboardContent{.text = u"b"_s});
        }
    }

    void enterPicksTheFirstMatch()
    {
        Page page;
        page.press(Qt::Key_End);
        page.history.viewModel.setQuery(u"D"_s);
        page.press(Qt::Key_Return);
        QVERIFY(page.pasted() == PasteboardContent{.text = u"d"_s});
    }

    void shiftEnterPastesAsPlainText()
    {
        Page page;
        page.history.copy({.text = u"rich"_s, .rtf = QByteArray("{}")});
        QVERIFY(page.press(Qt::Key_Return, Qt::ShiftModifier));
        QVERIFY(page.pasted() == PasteboardContent{.text = u"rich"_s});
    }

    void shiftEnterPastesTheTextInAnImage()
    {
        Page page;
        page.history.recognizer.texts.insert("PNG", u"read"_s);
        page.history.copy({.png = QByteArray("PNG")});
        QVERIFY(page.press(Qt::Key_Return, Qt::ShiftModifier));
        page.history.tasks.runAll();
        QVERIFY(page.pasted() == PasteboardContent{.text = u"read"_s});
    }

    void controlDigitPicksTheRowWithThatNumber()
    {
        Page page;
        page.press(Qt::Key_End);
        QVERIFY(page.press(Qt::Key_3, Qt::ControlModifier));
        QVERIFY(page.pasted() == PasteboardContent{.text = u"c"_s});
        QVERIFY(page.press(Qt::Key_1, Qt::ControlModifier | Qt::KeypadModifier));
        QVERIFY(page.pasted() == PasteboardContent{.text = u"c"_s}); // it is in front now
        QVERIFY(page.press(Qt::Key_6, Qt::ControlModifier | Qt::ShiftModifier));
        QVERIFY(page.pasted() == PasteboardContent{.text = u"f"_s});
        QCOMPARE(page.history.posted.count(), 3);
        QVERIFY(page.press(Qt::Key_7, Qt::ControlModifier));
        QVERIFY(page.press(Qt::Key_9, Qt::ControlModifier));
        QCOMPARE(page.history.posted.count(), 3);
    }

    void controlPTogglesThePin()
    {
        Page page;
        page.press(Qt::Key_Down);
        QVERIFY(page.press(Qt::Key_P, Qt::ControlModifier));
        QVERIFY(page.rows.item(1).isPinned());
        QVERIFY(page.press(Qt::Key_P, Qt::ControlModifier));
        QVERIFY(!page.rows.item(1).isPinned());
        QCOMPARE(page.selected(), u"b"_s);
    }

    void deleteRemovesTheRowOnlyWhileTheSearchFieldIsEmpty()
    {
        Page page;
        page.press(Qt::Key_Down);
        QVERIFY(page.press(Qt::Key_Delete));
        QCOMPARE(page.history.texts(), QStringList({u"a"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s}));
        QCOMPARE(page.selected(), u"c"_s);
        page.history.viewModel.setQuery(u" "_s);
        QVERIFY(!page.press(Qt::Key_Delete));
        QCOMPARE(page.rows.rowCount(), 5);
    }

    void heldKeyActsOnce()
    {
        Page page;
        QVERIFY(page.repeat(Qt::Key_Delete));
        QVERIFY(page.repeat(Qt::Key_Return));
        QVERIFY(page.repeat(Qt::Key_Return, Qt::ShiftModifier));
        QVERIFY(page.repeat(Qt::Key_P, Qt::ControlModifier));
        QVERIFY(page.repeat(Qt::Key_1, Qt::ControlModifier));
        QCOMPARE(page.rows.rowCount(), 6);
        QCOMPARE(page.history.posted.count(), 0);
        QCOMPARE(page.history.viewModel.pinnedCount(), 0);
    }

    void emptyListConsumesItsKeysAndDoesNothing()
    {
        Page page;
        page.history.viewModel.clearUnpinned();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown,
                                  Qt::Key_Home, Qt::Key_End, Qt::Key_Return, Qt::Key_Delete})
            QVERIFY(page.press(key));
        QVERIFY(page.press(Qt::Key_P, Qt::ControlModifier));
        QVERIFY(page.press(Qt::Key_1, Qt::ControlModifier));
        QCOMPARE(page.history.posted.count(), 0);
    }

    void otherKeysGoToTheSearchField()
    {
        Page page;
        const std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>> others = {
            {Qt::Key_A, Qt::NoModifier},
            {Qt::Key_P, Qt::NoModifier},
            {Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier},
            {Qt::Key_1, Qt::NoModifier},
            {Qt::Key_0, Qt::ControlModifier},
            {Qt::Key_1, Qt::ControlModifier | Qt::AltModifier},
            {Qt::Key_Left, Qt::NoModifier},
            {Qt::Key_Home, Qt::ShiftModifier},
            {Qt::Key_Down, Qt::ShiftModifier},
            {Qt::Key_Down, Qt::ControlModifier},
            {Qt::Key_Backspace, Qt::NoModifier},
            {Qt::Key_Delete, Qt::ShiftModifier},
            {Qt::Key_Delete, Qt::ControlModifier},
            {Qt::Key_Return, Qt::ControlModifier},
            {Qt::Key_Escape, Qt::NoModifier},
            {Qt::Key_Tab, Qt::ControlModifier},
        };
        for (const auto& [key, modifiers] : others)
            QVERIFY2(!page.press(key, modifiers), qPrintable(QString::number(key, 16)));
        QCOMPARE(page.history.posted.count(), 0);
        QCOMPARE(page.rows.rowCount(), 6);
    }
};

DRIFTBOX_TEST(TestClipboardKeyboard, QCoreApplication)
#include "TestClipboardKeyboard.moc"
