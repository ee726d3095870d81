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
            [this](bool visible) { visible ? moveIn() : moveOut(); });
    connect(&m_time, &QVariantAnimation::valueChanged, this, [this](const QVariant& seconds) {
        const double way =
            progress(m_animator.curve(), std::chrono::duration<double>(seconds.toDouble()));
        setPresence(m_startPresence + (m_endPresence - m_startPresence) * way);
    });
    connect(&m_time, &QVariantAnimation::finished, this, &PanelTransition::finish);
}

void PanelTransition::moveIn()
{
    m_content.setEnabled(true);
    if (m_animated) {
        removeEffect();
        installEffect();
        startTowards(1.0);
    } else {
        m_time.stop();
        m_presence = 1.0;
        removeEffect();
    }
}

void PanelTransition::moveOut()
{
    if (!m_content.isVisible())
        return settleHidden();
    removeEffect();
    const QPixmap picture = m_content.grab();
    m_content.setEnabled(false);
    installEffect();
    m_effect->freeze(picture);
    if (m_animated)
        startTowards(0.0);
    else
        setPresence(1.0);
}

void PanelTransition::startTowards(double presence)
{
    m_time.stop();
    m_startPresence = m_presence;
    m_endPresence = presence;
    const double seconds = duration(m_animator.curve()).count();
    m_time.setStartValue(0.0);
    m_time.setEndValue(seconds);
    m_time.setDuration(qRound(seconds * 1000.0));
    m_time.start();
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

// Whatever the content went away in the middle of is over.
void PanelTransition::settleHidden()
{
    m_time.stop();
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
        settleHidden();
    return QObject::eventFilter(watched, event);
}

} // namespace driftbox
