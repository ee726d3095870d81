#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QGraphicsEffect>

namespace driftbox {

/// Draws a widget scaled and faded. The widget is rendered to a pixmap, and again only when its
/// content changes.
class CardEffect final : public QGraphicsEffect
{
    Q_OBJECT

public:
    using QGraphicsEffect::QGraphicsEffect;

    /// From 0 (small and invisible) to 1 (unchanged). Values slightly above 1 enlarge the content
    /// within the widget's own rectangle.
    void setPresence(double presence);

    /// Draws `picture` instead of the widget from now on.
    void freeze(const QPixmap& picture) { m_frozen = picture; }

protected:
    void draw(QPainter* painter) override;

private:
    double m_presence = 0.0;
    QPixmap m_frozen;
};

} // namespace driftbox
