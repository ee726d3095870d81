#pragma once

#include "platform/FloatingSurface.h"

#include <vector>

#include <QtCore/QPointer>

namespace driftbox {

/// A floating window that is nowhere to be seen: it remembers what it was asked for, and a test
/// plays the user and the desktop.
class FakeFloatingSurface final : public FloatingSurface
{
    Q_OBJECT

public:
    FakeFloatingSurface(QWindow& adopted, Role surfaceRole);

    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void setFrame(const QRectF& frame) override { m_frame = frame; }
    [[nodiscard]] bool isVisible() const override { return m_visible; }
    [[nodiscard]] bool isKey() const override { return m_key; }
    void present(Keyboard keyboard) override;
    void orderOut() override;
    [[nodiscard]] bool isComposited() const override { return m_composited; }
    void setShape(const QRegion& newShape) override { shape = newShape; }
    void setClickThrough(bool clickThrough) override { isClickThrough = clickThrough; }
    void startMove() override { ++moves; }
    void startResize(Qt::Edges edges) override { resizes.push_back(edges); }

    // What the user and the desktop do.
    void moveByUser(const QRectF& frame);
    void setKey(bool key);
    void setComposited(bool composited);

    QWindow& window;
    const Role role;
    std::vector<Keyboard> presentations; ///< every `present`, in order
    int orderOuts = 0;
    QRegion shape;
    bool isClickThrough = false;
    int moves = 0;
    std::vector<Qt::Edges> resizes;

private:
    QRectF m_frame;
    bool m_visible = false;
    bool m_key = false;
    bool m_composited = true;
};

class FakeFloatingSurfaceFactory final : public FloatingSurfaceFactory
{
public:
    [[nodiscard]] std::unique_ptr<FloatingSurface> adopt(QWindow& window,
                                                         FloatingSurface::Role role) override;

    /// Every surface made so far, in order; null once its owner has destroyed it.
    std::vector<QPointer<FakeFloatingSurface>> surfaces;
};

} // namespace driftbox
