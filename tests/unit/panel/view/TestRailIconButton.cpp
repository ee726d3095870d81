#include "panel/view/RailIconButton.h"

#include "fakes/FakeAppearance.h"
#include "support/main/TestMain.h"
#include "ui/theme/Theme.h"
#include "ui/theme/ThemeFollower.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// Between the edge, where the focus shows, and the symbol.
QColor backgroundOf(RailIconButton& button)
{
    QImage image(button.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    button.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image.pixelColor(16, 4);
}

void movePointer(RailIconButton& button, bool over)
{
    if (over) {
        QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
        QApplication::sendEvent(&button, &enter);
    } else {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&button, &leave);
    }
}

} // namespace

class TestRailIconButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpIsTooltipAndAccessibleName()
    {
        const RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        QCOMPARE(button.toolTip(), u"Settings"_s);
        QCOMPARE(button.accessibleName(), u"Settings"_s);
        QCOMPARE(button.size(), QSize(32, 32));
        QVERIFY(!button.isActive());
    }

    void clickIsReportedAndKeepsTheState()
    {
        RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        const QSignalSpy clicked(&button, &RailIconButton::clicked);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(!button.isActive());
        button.setActive(true);
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(button.isActive());
        QCOMPARE(clicked.count(), 2);
    }

    void clickDoesNotTakeTheFocus()
    {
        const RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        QCOMPARE(button.focusPolicy(), Qt::TabFocus);
    }

    void activeButtonIsTintedWithTheAccent()
    {
        RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        QCOMPARE(backgroundOf(button).alpha(), 0);
        button.setActive(true);
        QVERIFY(std::abs(backgroundOf(button).alphaF() - 0.15F) < 0.01F);
        QVERIFY(std::abs(backgroundOf(button).hueF() - Theme::accent().hueF()) < 0.05F);
    }

    void hoverFadesTheBackgroundInAndOut()
    {
        RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        button.show();
        movePointer(button, true);
        QVERIFY(backgroundOf(button).alphaF() < 0.04F);
        QTRY_VERIFY(std::abs(backgroundOf(button).alphaF() - 0.08F) < 0.005F);
        movePointer(button, false);
        QTRY_COMPARE(backgroundOf(button).alpha(), 0);
    }

    void hidingResetsTheHoverState()
    {
        RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        button.show();
        movePointer(button, true);
        QTRY_VERIFY(backgroundOf(button).alpha() > 0);
        button.hide();
        QCOMPARE(backgroundOf(button).alpha(), 0);
        button.show();
        movePointer(button, true);
        QTRY_VERIFY(backgroundOf(button).alpha() > 0);
    }

    void hoverDoesNotChangeAnActiveButton()
    {
        RailIconButton button(u"gearshape"_s, u"Settings"_s, nullptr);
        button.setActive(true);
        button.show();
        const QColor before = backgroundOf(button);
        movePointer(button, true);
        QCOMPARE(backgroundOf(button), before);
    }
};

static int runTestRailIconButton(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const FakeAppearance appearance;
    const ThemeFollower theme(appearance);
    TestRailIconButton test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestRailIconButton, runTestRailIconButton)
#include "TestRailIconButton.moc"
