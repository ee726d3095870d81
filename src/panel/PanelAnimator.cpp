#include "panel/PanelAnimator.h"

namespace driftbox {

void PanelAnimator::setVisible(bool visible, const AnimationCurve& curve)
{
    if (m_isVisible == visible)
        return;
    m_isVisible = visible;
    m_curve = curve;
    Q_EMIT visibleChanged(visible);
}

} // namespace driftbox
