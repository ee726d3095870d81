#include "support/main/TestMain.h"
#include "ui/theme/QuietStyle.h"

#include "fakes/FakeAppearance.h"
#include "ui/theme/ThemeFollower.h"

#include <limits>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStyleOptionSlider>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

class Bar final : public QScrollBar
{
public:
    explicit Bar(Qt::Orientation orientation)
        : QScrollBar(orientation)
    {
        resize(orientation == Qt::Vertical ? QSize(12, 200) : QSize(200, 12));
        setRange(0, 300);
        setPageStep(100);
    }

    [[nodiscard]] QRect part(QStyle::SubControl control) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
    }
    [[nodiscard]] QRect thumb() const { return part(QStyle::SC_ScrollBarSlider); }
};

QImage pictureOf(QWidget& widget)
{
    widget.resize(widget.sizeHint());
    return widget.grab().toImage();
}

} // namespace

class TestQuietStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thumbShowsPositionAndPageSize()
    {
        Bar bar(Qt::Vertical);
        QCOMPARE(bar.thumb(), QRect(0, 0, 12, 50));
        bar.setValue(300);
        QCOMPARE(bar.thumb(), QRect(0, 150, 12, 50));
        bar.setValue(150);
        QCOMPARE(bar.thumb(), QRect(0, 75, 12, 50));
        QCOMPARE(bar.part(QStyle::SC_ScrollBarSubPage), QRect(0, 0, 12, 75));
        QCOMPARE(bar.part(QStyle::SC_ScrollBarAddPage), QRect(0, 125, 12, 75));
        QCOMPARE(bar.part(QStyle::SC_ScrollBarGroove), bar.rect());
    }

    void horizontalThumbFollowsTheLayoutDirection()
    {
        Bar bar(Qt::Horizontal);
        QCOMPARE(bar.thumb(), QRect(0, 0, 50, 12));
        bar.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(bar.thumb(), QRect(150, 0, 50, 12));
    }

    void scrollBarHasNoArrowButtons()
    {
        const Bar bar(Qt::Vertical);
        QVERIFY(bar.part(QStyle::SC_ScrollBarAddLine).isEmpty());
        QVERIFY(bar.part(QStyle::SC_ScrollBarSubLine).isEmpty());
    }

    void thumbHasAMinimumLength_data()
    {
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("pageStep");
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("thumb");
        QTest::newRow("long list") << 1'000'000 << 100 << 200 << 28;
        QTest::newRow("as long as can be") << std::numeric_limits<int>::max() << 1 << 200 << 28;
        QTest::newRow("nothing to scroll") << 0 << 100 << 200 << 200;
        QTest::newRow("no page") << 10 << 0 << 200 << 28;
        QTest::newRow("nothing at all") << 0 << 0 << 200 << 28;
        QTest::newRow("hardly any bar") << 300 << 100 << 10 << 10;
        QTest::newRow("no bar") << 300 << 100 << 0 << 0;
    }
    void thumbHasAMinimumLength()
    {
        QFETCH(int, maximum);
        QFETCH(int, pageStep);
        QFETCH(int, length);
        QFETCH(int, thumb);
        Bar bar(Qt::Vertical);
        bar.setRange(0, maximum);
        bar.setPageStep(pageStep);
        bar.resize(12, length);
        QCOMPARE(bar.thumb().height(), thumb);
    }

    void clickOnTheScrollBarJumpsThere()
    {
        Bar bar(Qt::Vertical);
        bar.show();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(6, 100));
        QCOMPARE(bar.value(), 150);
    }

    void scrollBarOverlaysItsArea()
    {
        QPlainTextEdit area;
        area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        area.resize(200, 200);
        const QImage picture = area.grab().toImage();
        QCOMPARE(picture.pixelColor(190, 100), area.palette().color(QPalette::Base));
    }

    void checkedStatesLookDifferent()
    {
        QCheckBox box;
        const QImage off = pictureOf(box);
        box.setChecked(true);
        const QImage on = pictureOf(box);
        box.setEnabled(false);
        QVERIFY(off != on);
        QVERIFY(on != pictureOf(box));
        box.setEnabled(true);
        box.setTristate(true);
        box.setCheckState(Qt::PartiallyChecked);
        QVERIFY(pictureOf(box) != on && pictureOf(box) != off);

        QRadioButton radio;
        const QImage unchosen = pictureOf(radio);
        radio.setChecked(true);
        QVERIFY(unchosen != pictureOf(radio));

        QPushButton button(u"Push"_s);
        const QImage up = pictureOf(button);
        button.setDown(true);
        QVERIFY(up != pictureOf(button));
    }

    void focusIsVisible_data()
    {
        QTest::addColumn<QSharedPointer<QWidget>>("control");
        const auto add = [](const char* name, QWidget* control) {
            QTest::newRow(name) << QSharedPointer<QWidget>(control);
        };
        add("button", new QPushButton(u"Push"_s));
        add("check box", new QCheckBox(u"Check"_s));
        add("radio button", new QRadioButton(u"Choose"_s));
        add("field", new QLineEdit);
        add("slider", new QSlider(Qt::Horizontal));
        add("combo box", new QComboBox);
        add("spin box", new QSpinBox);
    }
    void focusIsVisible()
    {
        QFETCH(QSharedPointer<QWidget>, control);
        QWidget window;
        QWidget other(&window);
        other.setFocusPolicy(Qt::StrongFocus);
        control->setParent(&window);
        window.show();
        control->show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other.setFocus();
        const QImage without = pictureOf(*control);
        control->setFocus(Qt::TabFocusReason);
        QVERIFY(control->hasFocus());
        QVERIFY(without != pictureOf(*control));
        control->setParent(nullptr);
    }

    void menusHaveRoundCornersAndFitTheirTexts()
    {
        QMenu menu;
        menu.addAction(u"Short"_s);
        const int narrow = menu.sizeHint().width();
        menu.addSeparator();
        QAction* longest = menu.addAction(u"A text that is longer"_s);
        longest->setShortcut(Qt::CTRL | Qt::Key_L);
        (void)pictureOf(menu);
        QVERIFY(menu.mask().contains(menu.rect().center()));
        QVERIFY(!menu.mask().contains(QPoint(0, 0)));
        const int texts = menu.fontMetrics().horizontalAdvance(
            longest->text() + longest->shortcut().toString(QKeySequence::NativeText));
        QVERIFY(menu.width() > texts && menu.width() > narrow);
        QVERIFY(menu.actionGeometry(menu.actions().at(1)).height() <
                menu.actionGeometry(longest).height());
    }

    void selectedMenuEntryIsHighlighted()
    {
        QMenu menu;
        QAction* entry = menu.addAction(u"Entry"_s);
        QPixmap red(16, 16);
        red.fill(Qt::red);
        entry->setIcon(red);
        menu.resize(menu.sizeHint());
        const QPoint inEntry = menu.actionGeometry(entry).center() + QPoint(20, 0);
        const QImage resting = menu.grab().toImage();
        menu.setActiveAction(entry);
        const QImage chosen = menu.grab().toImage();
        QVERIFY(resting.pixel(inEntry) != chosen.pixel(inEntry));
        QVERIFY(shows(resting, Qt::red));
        QVERIFY(!shows(chosen, Qt::red)); // it has the color of the text
    }

private:
    static bool shows(const QImage& picture, const QColor& color)
    {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == color)
                    return true;
            }
        }
        return false;
    }
};

static int runTestQuietStyle(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const FakeAppearance appearance;
    const ThemeFollower theme(appearance);
    TestQuietStyle test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestQuietStyle, runTestQuietStyle)
#include "TestQuietStyle.moc"
