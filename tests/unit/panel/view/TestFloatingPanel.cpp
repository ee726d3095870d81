#include "panel/view/FloatingPanel.h"

#include "fakes/FakeFloatingSurface.h"
#include "panel/PanelAnimator.h"
#include "panel/SectionRegistry.h"
#include "panel/view/MagicPanelRootView.h"
#include "panel/view/RailIconButton.h"
#include "support/main/TestMain.h"

#include <QtGui/QAccessible>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

struct Desktop
{
    FakeFloatingSurface& surface() { return *surfaces.surfaces.front(); }

    PanelAnimator animator;
    SectionRegistry registry;
    FakeFloatingSurfaceFactory surfaces;
    FloatingPanel panel{surfaces, animator, registry};
};

} // namespace

class TestFloatingPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowHasThePanelRoleAndSize()
    {
        Desktop desktop;
        QCOMPARE(desktop.surfaces.surfaces.size(), 1U);
        QCOMPARE(desktop.surface().role, FloatingSurface::Role::panel);
        QCOMPARE(&desktop.panel.surface(), &desktop.surface());
        QCOMPARE(desktop.surface().frame().size(), QSizeF(552, 648));
        QCOMPARE(desktop.panel.size(), QSize(552, 648));
        QVERIFY(!desktop.panel.isVisible());
        QVERIFY(desktop.surface().window.requestedFormat().hasAlpha());
    }

    void windowHasAnAccessibleName()
    {
        Desktop desktop;
        auto* accessible = QAccessible::queryAccessibleInterface(&desktop.panel);
        QCOMPARE(accessible->text(QAccessible::Name), u"Drift Box"_s);
        QCOMPARE(accessible->role(), QAccessible::Window);
        QCOMPARE(desktop.panel.windowTitle(), u"Drift Box"_s);
    }

    void inputShapeIsTheCard()
    {
        Desktop desktop;
        QCOMPARE(desktop.surface().shape.boundingRect(), QRect(28, 28, 496, 592));
        QVERIFY(!desktop.surface().shape.contains(QPoint(29, 29)));
    }

    void compositingChangesAreFollowed()
    {
        Desktop desktop;
        const auto cornerAlpha = [&desktop] {
            QImage image(desktop.panel.size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            desktop.panel.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
            return image.pixelColor(0, 0).alpha();
        };
        QCOMPARE(cornerAlpha(), 0);
        desktop.surface().setComposited(false);
        QCOMPARE(cornerAlpha(), 255);
        desktop.surface().setComposited(true);
        QCOMPARE(cornerAlpha(), 0);
    }

    void preparingShowsNothing()
    {
        Desktop desktop;
        desktop.panel.prepare();
        QVERIFY(!desktop.panel.isVisible());
        QVERIFY(desktop.surface().presentations.empty());
    }

    void settingsRequestIsForwarded()
    {
        Desktop desktop;
        const QSignalSpy requested(&desktop.panel, &FloatingPanel::settingsRequested);
        QTest::mouseClick(desktop.panel.findChild<RailIconButton*>(), Qt::LeftButton);
        QCOMPARE(requested.count(), 1);
    }
};

DRIFTBOX_TEST(TestFloatingPanel, QApplication)
#include "TestFloatingPanel.moc"
