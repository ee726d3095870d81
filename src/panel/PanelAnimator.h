#pragma once

#include "panel/AnimationCurve.h"

#include <QtCore/QObject>

namespace driftbox {

/// Whether the panel's content should be visible. The controller sets this flag; the panel's root
/// view animates its card accordingly. Main thread only.
class PanelAnimator : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] bool visible() const { return m_isVisible; }

    /// The animation curve of the last change. Valid once the flag has changed for the first time.
    [[nodiscard]] const AnimationCurve& curve() const { return m_curve; }

    /// Emits `visibleChanged` only if the value changes.
    void setVisible(bool visible, const AnimationCurve& curve);

Q_SIGNALS:
    void visibleChanged(bool visible);

private:
    bool m_isVisible = false;
    AnimationCurve m_curve;
};

} // namespace driftbox
