#include "panel/MagicPanelController.h"

#include "core/PasteRequest.h"
#include "panel/CursorLocator.h"
#include "panel/PanelAnimator.h"
#include "platform/Clock.h"
#include "platform/FloatingSurface.h"
#include "platform/LocalKeyMonitor.h"
#include "platform/PasteKeystroke.h"
#include "platform/ScreenGeometry.h"
#include "platform/Workspace.h"

#include <chrono>
#include <utility>

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(magicPanelControllerLog, "MagicPanelController")

constexpr SpringCurve showCurve{.response = 0.34, .dampingFraction = 0.7};
constexpr EaseInCurve hideCurve{.duration = 0.16};
// Slightly longer than the animation.
constexpr auto orderOutDelay = 170ms;
constexpr auto reactivationDelay = 100ms;
constexpr auto keystrokeDelay = 100ms;

bool isLive(const RunningApplication* application)
{
    return application && application->processIdentifier() > 0 &&
           application->isFinishedLaunching() && !application->isTerminated();
}

} // namespace

MagicPanelController::MagicPanelController(PanelAnimator& animator, FloatingSurface& panel,
                                           const Services& services, QObject* parent)
    : QObject(parent)
    , m_animator(animator)
    , m_panel(panel)
    , m_services(services)
{
    connect(&m_panel, &FloatingSurface::resignedKey, this, &MagicPanelController::startHiding);
    connect(&m_services.pasteRequest, &PasteRequest::posted, this,
            &MagicPanelController::handlePaste);
}

MagicPanelController::~MagicPanelController() = default;

bool MagicPanelController::isPanelVisible() const
{
    return m_isAwaitingCaret || m_panel.isVisible();
}

void MagicPanelController::show()
{
    if (m_isAwaitingCaret)
        return;
    captureTarget();
    Q_EMIT aboutToShow();

    m_isAwaitingCaret = true;
    m_services.cursorLocator.panelOrigin(
        m_panel.frame().size(), this,
        [this, generation = ++m_generation](std::optional<QPointF> origin) {
            if (m_isAwaitingCaret && generation == m_generation)
                present(origin);
        });
}

void MagicPanelController::captureTarget()
{
    // While the panel itself has the focus, the target is still the application captured before.
    if (!m_panel.isKey())
        m_frontmostApp = m_services.workspace.frontmostApplication();

    const auto bundle = m_frontmostApp ? m_frontmostApp->bundleIdentifier() : std::nullopt;
    qCInfo(magicPanelControllerLog).noquote() << u"Panel show: captured target %1 pid %2"_s.arg(
        bundle.value_or(u"nil"_s),
        QString::number(m_frontmostApp ? m_frontmostApp->processIdentifier() : -1));
}

void MagicPanelController::present(std::optional<QPointF> origin)
{
    m_isAwaitingCaret = false;
    const QSizeF size = m_panel.frame().size();
    if (!origin) {
        origin = ScreenGeometry::centeredOrigin(size, m_services.screens.mouseLocation(),
                                                m_services.screens.screens());
    }
    m_panel.setFrame(QRectF(*origin, size));
    m_panel.setClickThrough(false);
    m_panel.present(FloatingSurface::Keyboard::take);
    installEscapeMonitor();
    m_animator.setVisible(true, showCurve);
    qCInfo(magicPanelControllerLog).noquote() << u"Panel shown"_s;
}

void MagicPanelController::installEscapeMonitor()
{
    if (m_escapeMonitor)
        return;
    m_escapeMonitor = m_services.localKeys.addMonitor(
        [this](const KeyPress& press) { return handleKeyPress(press); });
}

bool MagicPanelController::handleKeyPress(const KeyPress& press)
{
    if (press.key != Qt::Key_Escape)
        return false;
    hide();
    return true;
}

void MagicPanelController::hide()
{
    m_isAwaitingCaret = false;
    startHiding();
}

void MagicPanelController::startHiding()
{
    if (!m_panel.isVisible() || m_isHiding)
        return;
    m_isHiding = true;
    // Clicks during the animation go to the windows below.
    m_panel.setClickThrough(true);
    m_escapeMonitor.reset();
    m_animator.setVisible(false, hideCurve);
    m_services.clock.after(orderOutDelay, this, [this] { orderOut(); });
}

void MagicPanelController::orderOut()
{
    m_panel.orderOut();
    m_isHiding = false;
    // `show` may have been called during the animation.
    m_escapeMonitor.reset();
    m_animator.setVisible(false, hideCurve);
}

void MagicPanelController::handlePaste()
{
    const auto target = m_frontmostApp;
    if (!isLive(target.get())) {
        qCCritical(magicPanelControllerLog).noquote()
            << u"Paste requested but no live frontmost target was captured"_s;
        hide();
        return;
    }

    const auto frontmost = m_services.workspace.frontmostApplication();
    const bool isFrontmost =
        frontmost && frontmost->processIdentifier() == target->processIdentifier();
    qCInfo(magicPanelControllerLog).noquote()
        << u"Paste → %1 pid %2; target is frontmost now? %3"_s.arg(
               target->bundleIdentifier().value_or(u"?"_s),
               QString::number(target->processIdentifier()), isFrontmost ? u"true"_s : u"false"_s);
    hide();
    m_services.clock.after(reactivationDelay, this, [this, target] { pasteBack(target); });
}

void MagicPanelController::pasteBack(const std::shared_ptr<RunningApplication>& target)
{
    target->activate();
    m_services.clock.after(keystrokeDelay, this, [this, target] {
        if (isLive(target.get()))
            m_services.pasteKeystroke.send(target);
    });
}

} // namespace driftbox
