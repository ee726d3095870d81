#include "support/main/TestMain.h"
#include "ui/controls/SearchBar.h"
#include "ui/controls/SymbolButton.h"

#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

struct SearchBarFixture
{
    SearchBarFixture()
    {
        bar.setGeometry(0, 0, 300, bar.height());
        window.resize(300, 100);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
        bar.setFocus();
    }

    [[nodiscard]] SymbolButton& clearButton() const { return *bar.findChild<SymbolButton*>(); }
    void type(const QString& text) const { QTest::keyClicks(&bar.field(), text); }
    void press(QKeySequence::StandardKey key) const { QTest::keySequence(&bar.field(), key); }

    QString pasteboard = u"on the pasteboard"_s;
    QStringList copied;
    QWidget window;
    SearchBar& bar = *new SearchBar(u"Search things"_s,
                                    {.pasteboardText = [this] { return pasteboard; },
                                     .copyText = [this](const QString& text) { copied << text; }},
                                    &window);
    QSignalSpy edited{&bar, &SearchBar::queryEdited};
};

} // namespace

class TestSearchBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->setText(u"untouched"_s); }
    void cleanup() { QCOMPARE(QGuiApplication::clipboard()->text(), u"untouched"_s); }

    void placeholderIsTheAccessibleName()
    {
        const SearchBarFixture f;
        QCOMPARE(f.bar.field().placeholderText(), u"Search things"_s);
        const QAccessibleInterface* field = QAccessible::queryAccessibleInterface(&f.bar.field());
        QCOMPARE(field->text(QAccessible::Name), u"Search things"_s);
        QCOMPARE(field->role(), QAccessible::EditableText);
    }

    void typingGoesToTheField()
    {
        SearchBarFixture f;
        QVERIFY(f.bar.field().hasFocus());
        f.type(u"ab"_s);
        QCOMPARE(f.edited.count(), 2);
        QCOMPARE(f.edited.last().first().toString(), u"ab"_s);
        f.window.setFocus();
        QTest::mouseClick(&f.bar, Qt::LeftButton, {}, {5, 20});
        QVERIFY(f.bar.field().hasFocus());
    }

    void clearButtonIsVisibleOnlyWithAQuery()
    {
        const SearchBarFixture f;
        QVERIFY(!f.clearButton().isVisible());
        QCOMPARE(f.clearButton().accessibleName(), u"Clear search"_s);
        const QRect field = f.bar.field().geometry();
        f.type(u" "_s);
        QVERIFY(f.clearButton().isVisible());
        QCOMPARE(f.bar.field().geometry(), field);
        QTest::mouseClick(&f.clearButton(), Qt::LeftButton);
        QVERIFY(!f.clearButton().isVisible());
        QCOMPARE(f.bar.field().text(), QString());
        QCOMPARE(f.edited.last().first().toString(), QString());
        QVERIFY(f.bar.field().hasFocus());
    }

    void settingTheQueryIsNotReportedAsAnEdit()
    {
        const SearchBarFixture f;
        f.bar.setQuery(u"abc"_s);
        QCOMPARE(f.bar.field().text(), u"abc"_s);
        QVERIFY(f.clearButton().isVisible());
        f.bar.field().setCursorPosition(1);
        f.bar.setQuery(u"abc"_s);
        QCOMPARE(f.bar.field().cursorPosition(), 1);
        f.bar.setQuery({});
        QVERIFY(!f.clearButton().isVisible());
        QCOMPARE(f.edited.count(), 0);
    }

    void textSetByAssistiveTechnologyIsReportedAsAnEdit()
    {
        const SearchBarFixture f;
        QAccessibleInterface* field = QAccessible::queryAccessibleInterface(&f.bar.field());
        field->editableTextInterface()->insertText(0, u"abc"_s);
        QCOMPARE(f.edited.count(), 1);
        QCOMPARE(f.edited.last().first().toString(), u"abc"_s);
    }

    void copyingAndPastingUseTheProgramsPasteboard()
    {
        SearchBarFixture f;
        f.type(u"abc"_s);
        f.press(QKeySequence::Copy);
        QVERIFY(f.copied.isEmpty());
        f.press(QKeySequence::SelectAll);
        f.press(QKeySequence::Copy);
        QCOMPARE(f.copied, QStringList(u"abc"_s));
        QCOMPARE(f.bar.field().text(), u"abc"_s);
        f.press(QKeySequence::Cut);
        QCOMPARE(f.copied.count(), 2);
        QCOMPARE(f.bar.field().text(), QString());
        QCOMPARE(f.edited.last().first().toString(), QString());
        f.press(QKeySequence::Paste);
        QCOMPARE(f.bar.field().text(), u"on the pasteboard"_s);
        QCOMPARE(f.edited.last().first().toString(), u"on the pasteboard"_s);
        f.bar.field().setCursorPosition(2);
        f.press(QKeySequence::Cut); // nothing is selected
        QCOMPARE(f.bar.field().text(), u"on the pasteboard"_s);
        QCOMPARE(f.copied.count(), 2);
    }

    void lineBreaksArePastedUnchanged()
    {
        SearchBarFixture f;
        f.pasteboard = u"two\nlines"_s;
        f.press(QKeySequence::Paste);
        QCOMPARE(f.edited.last().first().toString(), u"two\nlines"_s);
        f.pasteboard.clear();
        f.press(QKeySequence::Paste);
        QCOMPARE(f.bar.field().text(), u"two\nlines"_s);
        f.press(QKeySequence::Undo);
        QCOMPARE(f.edited.last().first().toString(), QString());
    }

    void selectingByMouseDoesNotSetThePrimarySelection()
    {
        const SearchBarFixture f;
        f.type(u"abc def"_s);
        QTest::mouseDClick(&f.bar.field(), Qt::LeftButton, {}, {10, 10});
        QTest::mouseRelease(&f.bar.field(), Qt::LeftButton, {}, {10, 10});
        QVERIFY(f.bar.field().hasSelectedText());
        QTest::mouseClick(&f.bar.field(), Qt::MiddleButton, {}, {10, 10});
        QCOMPARE(f.bar.field().text(), u"abc def"_s);
        QTest::mouseClick(&f.bar.field(), Qt::RightButton, {}, {10, 10});
        QVERIFY(!QGuiApplication::clipboard()->ownsSelection());
    }
};

DRIFTBOX_TEST(TestSearchBar, QApplication)
#include "TestSearchBar.moc"
