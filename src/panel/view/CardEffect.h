#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QGraphicsEffect>

namespace driftbox {

/// Draws a widget smaller and fainter than it is, out of a picture of it that is made once and
/// again only when the widget's content changes.
class CardEffect final : public QGraphicsEffect
{
    Q_OBJECT

public:
    using QGraphicsEffect::QGraphicsEffect;

    /// 0 is out: small and invisible; 1 is in: as it is. A little more makes it a little larger, as
    /// far as there is room within the widget's own rectangle.
    void setPresence(double presence);

    /// From now on draws `picture`, whatever becomes of the widget.
    void freeze(const QPixmap& picture) { m_frozen = picture; }

protected:
    void draw(QPainter* painter) override;

private:
    double m_presence = 0.0;
    QPixmap m_frozen;
};

} // namespace driftbox
