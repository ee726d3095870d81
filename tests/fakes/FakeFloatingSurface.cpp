#include "fakes/FakeFloatingSurface.h"

#include <utility>

#include <QtGui/QWindow>

namespace driftbox {

FakeFloatingSurface::FakeFloatingSurface(QWindow& adopted, Role surfaceRole)
    : window(adopted)
    , role(surfaceRole)
    , m_frame(adopted.geometry())
{
}

void FakeFloatingSurface::present(Keyboard keyboard)
{
    presentations.push_back(keyboard);
    m_isVisible = true;
    if (keyboard == Keyboard::take)
        setKey(true);
}

void FakeFloatingSurface::orderOut()
{
    ++orderOuts;
    m_isVisible = false;
    setKey(false);
}

void FakeFloatingSurface::moveByUser(const QRectF& frame)
{
    m_frame = frame;
    Q_EMIT frameChangedByUser(frame);
}

void FakeFloatingSurface::setKey(bool key)
{
    if (std::exchange(m_isKey, key) == key)
        return;
    if (key)
        Q_EMIT becameKey();
    else
        Q_EMIT resignedKey();
}

void FakeFloatingSurface::setComposited(bool composited)
{
    if (std::exchange(m_isComposited, composited) != composited)
        Q_EMIT compositedChanged(composited);
}

std::unique_ptr<FloatingSurface> FakeFloatingSurfaceFactory::adopt(QWindow& window,
                                                                   FloatingSurface::Role role)
{
    auto surface = std::make_unique<FakeFloatingSurface>(window, role);
    surfaces.emplace_back(surface.get());
    return surface;
}

} // namespace driftbox
