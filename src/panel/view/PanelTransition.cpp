#include "panel/view/PanelTransition.h"

#include "panel/PanelAnimator.h"
#include "panel/view/CardEffect.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

namespace driftbox {

PanelTransition::PanelTransition(PanelAnimator& animator, QWidget& content)
    : QObject(&content)
    , m_animator(animator)
    , m_content(content)
{
    m_content.installEventFilter(this);
    connect(&m_animator, &PanelAnimator::visibleChanged, this,
            [this](bool visible) { visible ? animateIn() : animateOut(); });
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& seconds) {
        const double fraction =
            progress(m_animator.curve(), std::chrono::duration<double>(seconds.toDouble()));
        setPresence(m_startPresence + (m_endPresence - m_startPresence) * fraction);
    });
    connect(&m_animation, &QVariantAnimation::finished, this, &PanelTransition::finish);
}

void PanelTransition::animateIn()
{
    m_content.setEnabled(true);
    if (m_isAnimated) {
        removeEffect();
        installEffect();
        startAnimation(1.0);
    } else {
        m_animation.stop();
        m_presence = 1.0;
        removeEffect();
    }
}

void PanelTransition::animateOut()
{
    if (!m_content.isVisible())
        return resetHidden();
    removeEffect();
    const QPixmap picture = m_content.grab();
    m_content.setEnabled(false);
    installEffect();
    m_effect->freeze(picture);
    if (m_isAnimated)
        startAnimation(0.0);
    else
        setPresence(1.0);
}

void PanelTransition::startAnimation(double presence)
{
    m_animation.stop();
    m_startPresence = m_presence;
    m_endPresence = presence;
    const double seconds = duration(m_animator.curve()).count();
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(seconds);
    m_animation.setDuration(qRound(seconds * 1000.0));
    m_animation.start();
}

void PanelTransition::setPresence(double presence)
{
    m_presence = presence;
    if (m_effect)
        m_effect->setPresence(presence);
}

void PanelTransition::finish()
{
    setPresence(m_endPresence);
    if (m_animator.visible())
        removeEffect();
}

// Ends any animation that was interrupted by hiding the content.
void PanelTransition::resetHidden()
{
    m_animation.stop();
    m_presence = m_animator.visible() ? 1.0 : 0.0;
    removeEffect();
    m_content.setEnabled(true);
}

void PanelTransition::installEffect()
{
    m_effect = new CardEffect;
    m_effect->setPresence(m_presence);
    m_content.setGraphicsEffect(m_effect);
}

void PanelTransition::removeEffect()
{
    if (m_effect)
        m_content.setGraphicsEffect(nullptr);
}

bool PanelTransition::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide)
        resetHidden();
    return QObject::eventFilter(watched, event);
}

} // namespace driftbox
