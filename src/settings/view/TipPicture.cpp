#include "settings/view/TipPicture.h"

#include "ui/theme/CardShape.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr QSize pictureSize(150, 190);
constexpr qreal tipPictureCornerRadius = 6.0;
constexpr int captionSpacing = 6;
constexpr int captionSize = 12;
constexpr qreal quaternaryOpacity = 0.08;

} // namespace

QImage bundledImage(const QString& name)
{
    return QImage(u":/images/%1.png"_s.arg(name));
}

TipPicture::TipPicture(const QString& name, const QString& caption, QWidget* parent)
    : QLabel(caption, parent)
    , m_image(bundledImage(name))
{
    setFont(Theme::systemFont(captionSize));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TipPicture::sizeHint() const
{
    const QFontMetrics caption = fontMetrics();
    return {std::max(pictureSize.width(), caption.horizontalAdvance(text())),
            pictureSize.height() + captionSpacing + caption.height()};
}

void TipPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF frame(QPointF((width() - pictureSize.width()) / 2.0, 0), pictureSize);
    const QPainterPath shape = continuousRoundedRect(frame, tipPictureCornerRadius);
    if (m_image.isNull()) {
        painter.fillPath(shape, Theme::withOpacity(Theme::primary(), quaternaryOpacity));
        painter.setFont(Theme::systemFont(13));
        painter.setPen(Theme::secondary());
        painter.drawText(frame, Qt::AlignCenter, u"QR"_s);
    } else {
        painter.save();
        painter.setClipPath(shape);
        painter.drawImage(frame, m_image);
        painter.restore();
    }
    painter.setFont(font());
    painter.setPen(Theme::secondary());
    painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignBottom, text());
}

} // namespace driftbox
