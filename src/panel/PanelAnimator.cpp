#include "panel/PanelAnimator.h"

namespace driftbox {

void PanelAnimator::setVisible(bool visible, const AnimationCurve& curve)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    m_curve = curve;
    Q_EMIT visibleChanged(visible);
}

} // namespace driftbox
