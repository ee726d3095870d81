#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>

class QWidget;

namespace driftbox {

class CardEffect;
class PanelAnimator;

/// Animates the panel's content when the animator's flag changes, along the curve of that change.
///
/// The content accepts input as soon as it starts to appear. As soon as it starts to disappear, it
/// is a static picture without input, so that nothing is picked twice. Main thread only.
class PanelTransition final : public QObject
{
    Q_OBJECT

public:
    /// `content` owns the transition. `animator` must outlive it.
    PanelTransition(PanelAnimator& animator, QWidget& content);

    /// Whether the content is scaled and faded, which needs a compositing desktop.
    void setAnimated(bool animated) { m_isAnimated = animated; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void animateIn();
    void animateOut();
    void startAnimation(double presence);
    void setPresence(double presence);
    void finish();
    void resetHidden();
    void installEffect();
    void removeEffect();

    PanelAnimator& m_animator;
    QWidget& m_content;
    QPointer<CardEffect> m_effect; ///< owned by the content while it is installed
    QVariantAnimation m_animation; ///< the seconds since it started
    bool m_isAnimated = true;
    double m_presence = 0.0;
    double m_startPresence = 0.0;
    double m_endPresence = 0.0;
};

} // namespace driftbox
