#pragma once

#include <optional>

#include <QtWidgets/QWidget>

class QScrollBar;

namespace driftbox {

/// A slim scroll bar that lies over the right edge of what it scrolls and takes no room. It shows
/// only when there is something to scroll, and follows the scroll bar that it stands for. Its
/// color is that of text in its palette.
class OverlayScrollBar final : public QWidget
{
    Q_OBJECT

public:
    /// How wide the bar is, in points.
    static constexpr int thickness = 10;

    /// Stands for `scrollBar`, which must outlive it.
    OverlayScrollBar(QScrollBar& scrollBar, QWidget* parent);

    /// Puts the bar along the right edge of `area`, in the parent's coordinates, above all else.
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
    std::optional<qreal> m_grip; ///< where on the thumb the mouse holds it
};

} // namespace driftbox
