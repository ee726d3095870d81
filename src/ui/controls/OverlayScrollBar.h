#pragma once

#include <optional>

#include <QtWidgets/QWidget>

class QScrollBar;

namespace driftbox {

/// A slim scroll bar that overlays the right edge of the scrolled area without taking space. It is
/// visible only if there is something to scroll, and mirrors a hidden regular scroll bar. Painted
/// in the text color of its palette.
class OverlayScrollBar final : public QWidget
{
    Q_OBJECT

public:
    /// The width of the bar, in points.
    static constexpr int thickness = 10;

    /// Mirrors `scrollBar`, which must outlive it.
    OverlayScrollBar(QScrollBar& scrollBar, QWidget* parent);

    /// Positions the bar along the right edge of `area`, in the parent's coordinates, and raises
    /// it.
    void placeIn(const QRect& area);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF thumb() const;
    [[nodiscard]] qreal trackLength() const;
    void dragTo(qreal thumbTop);

    QScrollBar& m_scrollBar;
    std::optional<qreal> m_grip; ///< the dragged position within the thumb; set during a drag
};

} // namespace driftbox
