#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>

class QWidget;

namespace driftbox {

class CardEffect;
class PanelAnimator;

/// Moves the panel's content in and out as the animator's flag says, along the curve of the change.
///
/// While the content comes in it is alive already: typing and clicks reach it. From the moment that
/// it goes it is a picture and takes no input, so that nothing is picked twice. Main thread only.
class PanelTransition final : public QObject
{
    Q_OBJECT

public:
    /// `content` owns the transition. `animator` must outlive it.
    PanelTransition(PanelAnimator& animator, QWidget& content);

    /// Whether the content can be scaled and faded: not on a desktop that does not blend windows.
    void setAnimated(bool animated) { m_animated = animated; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void moveIn();
    void moveOut();
    void startTowards(double presence);
    void setPresence(double presence);
    void finish();
    void settleHidden();
    void installEffect();
    void removeEffect();

    PanelAnimator& m_animator;
    QWidget& m_content;
    QPointer<CardEffect> m_effect; ///< owned by the content while it is installed
    QVariantAnimation m_time;      ///< the seconds since the movement began
    bool m_animated = true;
    double m_presence = 0.0;
    double m_startPresence = 0.0;
    double m_endPresence = 0.0;
};

} // namespace driftbox
