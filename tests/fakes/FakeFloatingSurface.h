#pragma once

#include "platform/FloatingSurface.h"

#include <vector>

#include <QtCore/QPointer>

namespace driftbox {

/// A floating surface without a visible window. Records requests; the test plays the user and the
/// desktop.
class FakeFloatingSurface final : public FloatingSurface
{
    Q_OBJECT

public:
    FakeFloatingSurface(QWindow& adopted, Role surfaceRole);

    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void setFrame(const QRectF& frame) override { m_frame = frame; }
    [[nodiscard]] bool isVisible() const override { return m_isVisible; }
    [[nodiscard]] bool isKey() const override { return m_isKey; }
    void present(Keyboard keyboard) override;
    void orderOut() override;
    [[nodiscard]] bool isComposited() const override { return m_isComposited; }
    void setShape(const QRegion& newShape) override { shape = newShape; }
    void setClickThrough(bool clickThrough) override { isClickThrough = clickThrough; }
    void startMove() override { ++moves; }
    void startResize(Qt::Edges edges) override { resizes.push_back(edges); }

    // Actions of the user and the desktop.
    void moveByUser(const QRectF& frame);
    void setKey(bool key);
    void setComposited(bool composited);

    QWindow& window;
    const Role role;
    std::vector<Keyboard> presentations; ///< the calls of `present`, in order
    int orderOuts = 0;
    QRegion shape;
    bool isClickThrough = false;
    int moves = 0;
    std::vector<Qt::Edges> resizes;

private:
    QRectF m_frame;
    bool m_isVisible = false;
    bool m_isKey = false;
    bool m_isComposited = true;
};

class FakeFloatingSurfaceFactory final : public FloatingSurfaceFactory
{
public:
    [[nodiscard]] std::unique_ptr<FloatingSurface> adopt(QWindow& window,
                                                         FloatingSurface::Role role) override;

    /// All surfaces created so far, in order; null once they are destroyed.
    std::vector<QPointer<FakeFloatingSurface>> surfaces;
};

} // namespace driftbox
