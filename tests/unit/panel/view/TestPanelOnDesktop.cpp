#include "core/PasteRequest.h"
#include "fakes/FakeAppearance.h"
#include "fakes/FakeCaretLookup.h"
#include "fakes/FakePasteKeystroke.h"
#include "fakes/FakeScreens.h"
#include "panel/CursorLocator.h"
#include "panel/MagicPanelController.h"
#include "panel/PanelAnimator.h"
#include "panel/SectionRegistry.h"
#include "panel/view/FloatingPanel.h"
#include "platform/desktop/QtLocalKeyMonitor.h"
#include "platform/desktop/SystemClock.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11FloatingSurfaceFactory.h"
#include "platform/x11/windows/X11Workspace.h"
#include "support/VirtualDesktop.h"
#include "support/X11Client.h"
#include "support/X11User.h"
#include "support/main/TestMain.h"
#include "ui/theme/Theme.h"
#include "ui/theme/ThemeFollower.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

#include <X11/keysym.h>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr QRect otherFrame(300, 720, 500, 120); // its inside begins at the card's lower edge
// The caret of the other application; the panel stands beneath it.
constexpr QRectF caret(100, 100, 1, 18);
constexpr QPoint panelCorner(100, 124);
constexpr QPoint cardCorner = panelCorner + QPoint(28, 28);
constexpr QPoint inTheCard = cardCorner + QPoint(300, 500);

class SearchSection final : public MagicPanelSection
{
public:
    [[nodiscard]] QString id() const override { return u"search"_s; }
    [[nodiscard]] QString title() const override { return u"Search"_s; }
    [[nodiscard]] QString systemImage() const override { return u"magnifyingglass"_s; }
    [[nodiscard]] QWidget* makeRootView(QWidget* parent) override
    {
        auto* page = new QWidget(parent);
        auto* column = new QVBoxLayout(page);
        auto* field = new QLineEdit;
        column->addWidget(field);
        column->addStretch();
        page->setFocusProxy(field);
        return page;
    }
};

/// Blends the windows for as long as it lives.
class Compositor
{
public:
    Compositor()
    {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(u"picom"_s, {u"--backend"_s, u"xrender"_s, u"--config"_s, u"/dev/null"_s});
    }
    ~Compositor()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

private:
    QProcess m_process;
};

/// The whole panel, on the real desktop.
struct OnDesktopPanel
{
    OnDesktopPanel()
    {
        registry.registerSection(std::make_unique<SearchSection>());
        caretLookup.caret = caret;
    }

    [[nodiscard]] bool isKey() const { return surface.isKey(); }
    [[nodiscard]] QString typed() { return window.findChild<QLineEdit*>()->text(); }

    std::unique_ptr<X11Connection> connection = X11Connection::open();
    X11FloatingSurfaceFactory surfaces{*connection};
    X11Workspace workspace{*connection};
    FakePasteKeystroke keystroke;
    FakeCaretLookup caretLookup;
    FakeScreens screens;
    CursorLocator locator{caretLookup, screens};
    QtLocalKeyMonitor keys;
    PasteRequest pasteRequest;
    SystemClock clock;
    PanelAnimator animator;
    SectionRegistry registry;
    FloatingPanel window{surfaces, animator, registry};
    FloatingSurface& surface = window.surface();
    MagicPanelController controller{
        animator, surface, {workspace, keystroke, locator, screens, keys, pasteRequest, clock}};
};

} // namespace

class TestPanelOnDesktop : public QObject
{
    Q_OBJECT

    FakeAppearance m_appearance;
    ThemeFollower m_theme{m_appearance};
    X11User m_user;
    std::unique_ptr<X11Client> m_other;
    std::unique_ptr<OnDesktopPanel> m_panel;

private Q_SLOTS:
    void init()
    {
        m_user.movePointer({1430, 890});
        m_panel = std::make_unique<OnDesktopPanel>();
        m_other = std::make_unique<X11Client>(X11Client::Settings{.frame = otherFrame});
        QTRY_VERIFY(m_other->hasFocus());
    }

    void cleanup()
    {
        m_panel.reset();
        m_other.reset();
    }

    void onlyTheCardIsVisibleBelowTheCaret()
    {
        const QColor desktop = m_user.colorAt(inTheCard);
        QVERIFY(desktop != Theme::panelBackground());
        m_panel->controller.show();
        QTRY_COMPARE(m_user.colorAt(inTheCard), Theme::panelBackground());
        // Nothing blends windows here, so there is neither a margin nor a shadow.
        QCOMPARE(m_user.colorAt(cardCorner - QPoint(1, -300)), desktop);
        QCOMPARE(m_user.colorAt(cardCorner + QPoint(1, 1)), desktop);
        QCOMPARE(m_user.colorAt(cardCorner + QPoint(248, -1)), desktop);
        QVERIFY(m_user.colorAt(cardCorner + QPoint(2, 300)) != desktop);

        m_panel->controller.hide();
        QTRY_COMPARE(m_user.colorAt(inTheCard), desktop);
    }

    void cardHasAShadowWithCompositing()
    {
        const Compositor compositor;
        QTRY_VERIFY(m_panel->surface.isComposited());
        const QPoint underTheCard = cardCorner + QPoint(248, 592 + 8);
        const QColor other = m_user.colorAt(underTheCard);
        m_panel->controller.show();
        QTRY_COMPARE(m_user.colorAt(inTheCard), Theme::panelBackground());
        QTRY_VERIFY(m_user.colorAt(underTheCard).lightness() < other.lightness());

        // The shadow is there to be seen only: a click goes through it.
        QTRY_VERIFY(m_panel->isKey());
        m_user.click(underTheCard);
        QTRY_VERIFY(!m_panel->surface.isVisible());
        QTRY_COMPARE(m_user.colorAt(underTheCard), other);
    }

    void typingGoesToTheSearchFieldAndBackToTheApplication()
    {
        m_panel->controller.show();
        QTRY_VERIFY(m_panel->isKey());
        m_user.tap(XK_a);
        m_user.tap(XK_b);
        QTRY_COMPARE(m_panel->typed(), u"ab"_s);
        QVERIFY(m_other->keys().empty());

        m_user.tap(XK_Escape);
        QTRY_VERIFY(!m_panel->surface.isVisible());
        QTRY_VERIFY(m_other->hasFocus());
        m_user.tap(XK_c);
        QTRY_COMPARE(m_other->keys().size(), std::size_t(2));
        QCOMPARE(m_panel->typed(), u"ab"_s);
    }

    void clickingElsewhereHidesThePanel()
    {
        m_panel->controller.show();
        QTRY_VERIFY(m_panel->isKey());
        m_user.click(otherFrame.bottomRight() - QPoint(20, 20));
        QTRY_VERIFY(!m_panel->surface.isVisible());
        QVERIFY(!m_panel->animator.visible());
    }

    void clickingInThePanelKeepsItOpen()
    {
        m_panel->controller.show();
        QTRY_VERIFY(m_panel->isKey());
        m_user.click(inTheCard);
        m_user.tap(XK_a);
        QTRY_COMPARE(m_panel->typed(), u"a"_s);
        QVERIFY(m_panel->animator.visible());
    }

    void previousApplicationIsThePasteTarget()
    {
        m_panel->controller.show();
        QTRY_VERIFY(m_panel->isKey());
        m_panel->pasteRequest.post();
        QTRY_COMPARE(m_panel->keystroke.targets.size(), std::size_t(1));
        QCOMPARE(m_panel->keystroke.targets.front()->bundleIdentifier(), u"Plainclient"_s);
        QVERIFY(!m_panel->surface.isVisible());
        QTRY_VERIFY(m_other->hasFocus());
    }

    void repeatedShowingLeaksNothing()
    {
        for (int round = 0; round < 5; ++round) {
            m_panel->controller.show();
            QTRY_VERIFY(m_panel->isKey());
            m_panel->controller.hide();
            QTRY_VERIFY(!m_panel->controller.isPanelVisible());
            QTRY_VERIFY(m_other->hasFocus());
        }
        m_panel->controller.show();
        QTRY_VERIFY(m_panel->isKey());
        m_user.tap(XK_z);
        QTRY_COMPARE(m_panel->typed(), u"z"_s);
    }
};

static int runTestPanelOnDesktop(int argc, char** argv)
{
    const VirtualDesktop desktop;
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    TestPanelOnDesktop test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestPanelOnDesktop, runTestPanelOnDesktop)
#include "TestPanelOnDesktop.moc"
