#include "platform/desktop/caret/CaretGeometry.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using CaretGeometry::Text;
using CaretGeometry::Window;

namespace {

constexpr QRect element(100, 50, 400, 300);

// A text that reports every character correctly: 10 wide, 20 high, lines below each other.
Text truthful(const QString& characters, int caret)
{
    Text text;
    text.caret = caret;
    text.characterCount = int(characters.size());
    text.element = element;
    text.afterLineBreak = caret > 0 && characters.at(caret - 1) == u'\n';
    int column = 0;
    int line = 0;
    for (int i = 0; i < characters.size(); ++i) {
        const bool isBreak = characters.at(i) == u'\n';
        text.characters.insert(i, QRect(100 + 10 * column, 50 + 20 * line, isBreak ? 0 : 10, 20));
        column = isBreak ? 0 : column + 1;
        line += isBreak ? 1 : 0;
    }
    return text;
}

// The same as reported by Qt's plain text editor, scrolled down by some lines.
Text flat(const QString& characters, int caret, int scrolledLines = 0)
{
    Text text = truthful(characters, caret);
    text.leading = characters.left(CaretGeometry::leadingEnd(text));
    text.viewport = element;
    for (QRect& extents : text.characters)
        extents.moveTop(element.y() - scrolledLines);
    return text;
}

std::vector<Screen> oneScreen(qreal scale)
{
    const QRectF frame(0, 0, 1600 / scale, 1000 / scale);
    return {
        {.frame = frame, .visibleFrame = frame, .deviceFrame = {0, 0, 1600, 1000}, .scale = scale}};
}

// Two screens of 1600x1000 pixels side by side, both at 2x. The second starts at point 1600.
std::vector<Screen> twoDenseScreens()
{
    return {
        {.frame = {0, 0, 800, 500},
         .visibleFrame = {0, 0, 800, 500},
         .deviceFrame = {0, 0, 1600, 1000},
         .scale = 2},
        {.frame = {1600, 0, 800, 500},
         .visibleFrame = {1600, 0, 800, 500},
         .deviceFrame = {1600, 0, 1600, 1000},
         .scale = 2},
    };
}

} // namespace

class TestCaretGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void caretIsLeftOfTheFollowingCharacter()
    {
        QCOMPARE(CaretGeometry::caretRectangle(truthful(u"ab\ncd"_s, 1)), QRectF(110, 50, 1, 20));
        QCOMPARE(CaretGeometry::caretRectangle(truthful(u"ab\ncd"_s, 2)), QRectF(120, 50, 1, 20));
        QCOMPARE(CaretGeometry::caretRectangle(truthful(u"ab\ncd"_s, 3)), QRectF(100, 70, 1, 20));
    }

    void caretAtTheEndIsRightOfTheLastCharacter()
    {
        QCOMPARE(CaretGeometry::caretRectangle(truthful(u"ab"_s, 2)), QRectF(120, 50, 1, 20));
    }

    void caretAfterALineBreakIsOnTheNextLine()
    {
        QCOMPARE(CaretGeometry::caretRectangle(truthful(u"ab\n"_s, 3)), QRectF(100, 70, 1, 20));
        QCOMPARE(CaretGeometry::caretRectangle(truthful(u"\n\n"_s, 2)), QRectF(100, 90, 1, 20));
    }

    void emptyElementGivesItsOwnRectangle()
    {
        Text text;
        text.element = element;
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(100, 50, 1, 20));
        text.element = QRect(100, 50, 400, 30);
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(100, 50, 1, 30));
    }

    void elementWithoutGeometryHasNoCaret()
    {
        Text text = truthful(u"ab"_s, 1);
        text.characters.clear();
        QCOMPARE(CaretGeometry::caretRectangle(text), std::nullopt);
        text.characters = {{0, QRect(0, 0, 0, 0)}, {1, QRect(-1, -1, -1, -1)}};
        QCOMPARE(CaretGeometry::caretRectangle(text), std::nullopt);

        text.element = QRect(100, 50, 400, 30); // one line: its start is near enough
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(100, 50, 1, 30));
        QCOMPARE(CaretGeometry::caretRectangle(Text()), std::nullopt);
    }

    void selectionIsTheBoundingBoxOfItsEnds()
    {
        Text text = truthful(u"abcd\nefgh"_s, 3);
        text.selection = {1, 3};
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(110, 50, 20, 20));
        text.selection = {1, 7};
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(110, 50, 10, 40));
        text.selection = {3, 2}; // empty
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(130, 50, 1, 20));
    }

    void selectionIsClippedToItsElement()
    {
        Text text = truthful(QString(60, u'\n'), 60);
        text.selection = {0, 60};
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(100, 50, 1, 300));
    }

    void paragraphsReportedAtTheFirstOnesPositionAreMoved()
    {
        const QString lines = u"ab\ncd\n\nef"_s;
        for (int caret = 0; caret <= lines.size(); ++caret)
            QCOMPARE(CaretGeometry::caretRectangle(flat(lines, caret)),
                     CaretGeometry::caretRectangle(truthful(lines, caret)));

        const QString empty = u"ab\n\n\n"_s;
        for (int caret = 0; caret <= empty.size(); ++caret)
            QCOMPARE(CaretGeometry::caretRectangle(flat(empty, caret)),
                     CaretGeometry::caretRectangle(truthful(empty, caret)));

        Text selected = flat(lines, 8);
        selected.selection = {1, 8};
        QCOMPARE(CaretGeometry::caretRectangle(selected), QRectF(100, 50, 20, 80));
    }

    void paragraphsScrolledOutOfSightAreCounted()
    {
        const Text text = flat(QString(30, u'\n') + u"x"_s, 30, 20);
        QCOMPARE(CaretGeometry::caretRectangle(text), QRectF(100, 50 + 10 * 20, 1, 20));
    }

    void movedParagraphsStayInTheViewport()
    {
        const QString lines = QString(30, u'\n') + u"x"_s;
        QCOMPARE(CaretGeometry::caretRectangle(flat(lines, 30, 0))->bottom(), 350.0);
        QCOMPARE(CaretGeometry::caretRectangle(flat(lines, 30, 40))->top(), 50.0);
    }

    void fewCharactersAreQueried()
    {
        Text text;
        text.characterCount = 100'000;
        QCOMPARE(CaretGeometry::decisiveCharacters(text), std::vector<int>{0});
        text.caret = 50'000;
        QCOMPARE(CaretGeometry::decisiveCharacters(text), (std::vector{0, 49'999, 50'000}));
        text.leading = QString(40'000, u'\n') + QString(10'000, u'x');
        QCOMPARE(CaretGeometry::decisiveCharacters(text), (std::vector{0, 40'000, 49'999, 50'000}));
        text.selection = {7, 50'000};
        QCOMPARE(CaretGeometry::decisiveCharacters(text), (std::vector{0, 7, 40'000, 49'999}));
    }

    void withoutAWindowTheApplicationUsesOurPoints()
    {
        const QRectF caret(100, 100, 1, 20);
        QCOMPARE(CaretGeometry::toDesktop(caret, std::nullopt, oneScreen(2)), caret);
        QCOMPARE(CaretGeometry::toDesktop(caret, Window(), oneScreen(2)), caret);
    }

    void scaleIsTakenFromTheWindow_data()
    {
        QTest::addColumn<qreal>("desktop");
        QTest::addColumn<QRect>("reported");
        QTest::addColumn<QRect>("device");
        QTest::addColumn<QRectF>("expected");
        QTest::newRow("1 on 1") << 1.0 << QRect(10, 20, 400, 300) << QRect(10, 20, 400, 300)
                                << QRectF(100, 100, 1, 20);
        QTest::newRow("2 on 1") << 1.0 << QRect(10, 20, 400, 300) << QRect(20, 40, 800, 600)
                                << QRectF(200, 200, 2, 40);
        QTest::newRow("2 on 2") << 2.0 << QRect(10, 20, 400, 300) << QRect(20, 40, 800, 600)
                                << QRectF(100, 100, 1, 20);
        QTest::newRow("1 on 2") << 2.0 << QRect(10, 20, 400, 300) << QRect(10, 20, 400, 300)
                                << QRectF(50, 50, 0.5, 10);
        QTest::newRow("1 on 1.5") << 1.5 << QRect(10, 20, 400, 300) << QRect(10, 20, 400, 300)
                                  << QRectF(100 / 1.5, 100 / 1.5, 1 / 1.5, 20 / 1.5);
        // GTK counts the decorations of the window, the server does not.
        QTest::newRow("decorated")
            << 1.0 << QRect(9, 0, 402, 321) << QRect(10, 20, 400, 300) << QRectF(100, 100, 1, 20);
        QTest::newRow("decorated 2")
            << 1.0 << QRect(9, 0, 402, 321) << QRect(20, 40, 800, 600) << QRectF(200, 200, 2, 40);
    }
    void scaleIsTakenFromTheWindow()
    {
        QFETCH(const qreal, desktop);
        QFETCH(const QRect, reported);
        QFETCH(const QRect, device);
        QFETCH(const QRectF, expected);
        QCOMPARE(CaretGeometry::toDesktop(QRectF(100, 100, 1, 20), Window{reported, device},
                                          oneScreen(desktop)),
                 expected);
    }

    void onASecondScreenToolkitsDifferInTheOrigin()
    {
        // The window's left edge is 100 pixels into the second screen.
        const QRect device(1700, 200, 800, 600);
        const Window likeOurs{QRect(1650, 100, 400, 300), device};
        QCOMPARE(CaretGeometry::toDesktop(QRectF(1700, 150, 1, 20), likeOurs, twoDenseScreens()),
                 QRectF(1700, 150, 1, 20));
        const Window scaledAll{QRect(850, 100, 400, 300), device};
        QCOMPARE(CaretGeometry::toDesktop(QRectF(900, 150, 1, 20), scaledAll, twoDenseScreens()),
                 QRectF(1700, 150, 1, 20));
    }

    void positionsOffTheScreensGiveNothing()
    {
        const Window window{QRect(10, 20, 400, 300), QRect(20, 40, 800, 600)};
        QCOMPARE(CaretGeometry::toDesktop(QRectF(5000, 100, 1, 20), window, oneScreen(1)),
                 std::nullopt);
        QCOMPARE(CaretGeometry::toDesktop(QRectF(10, 10, 1, 20), window, {}), std::nullopt);
    }
};

DRIFTBOX_TEST(TestCaretGeometry, QCoreApplication)
#include "TestCaretGeometry.moc"
