#pragma once

#include "panel/AnimationCurve.h"

#include <QtCore/QObject>

namespace driftbox {

/// Whether the panel's content is in. The panel's root view animates its card from this flag; the
/// controller changes it. Main thread only.
class PanelAnimator : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] bool visible() const { return m_visible; }

    /// The curve of the last change: what follows the flag moves along it. Valid once the flag has
    /// changed for the first time.
    [[nodiscard]] const AnimationCurve& curve() const { return m_curve; }

    /// Observers are notified only when the value differs.
    void setVisible(bool visible, const AnimationCurve& curve);

Q_SIGNALS:
    void visibleChanged(bool visible);

private:
    bool m_visible = false;
    AnimationCurve m_curve;
};

} // namespace driftbox
