#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QFontDatabase>
#include <QtGui/QImage>
#include <QtGui/QPainter>

namespace driftbox {

struct TextStyle
{
    QString typeface = QStringLiteral("Inter");
    int pixelSize = 14;
    QColor ink = Qt::black;
    QColor ground = Qt::white;
};

[[nodiscard]] inline QFont fontOf(const TextStyle& style)
{
    if (!QFontDatabase::hasFamily(style.typeface))
        qFatal("The typeface %s is not installed", qUtf8Printable(style.typeface));
    QFont font(style.typeface);
    font.setPixelSize(style.pixelSize);
    return font;
}

/// `text`, whose lines are separated by line feeds, below and right of `place`.
inline void drawText(QPainter& painter, const QPoint& place, const QString& text,
                     const TextStyle& style = {})
{
    painter.setFont(fontOf(style));
    painter.setPen(style.ink);
    painter.drawText(QRect(place, QSize(4'000, 4'000)), 0, text);
}

/// A picture of `text` alone.
[[nodiscard]] inline QImage renderedText(const QString& text, const TextStyle& style = {})
{
    const QFontMetrics metrics(fontOf(style));
    const QSize size = metrics.size(0, text) + QSize(24, 24);
    QImage image(size, QImage::Format_RGB32);
    image.fill(style.ground);
    QPainter painter(&image);
    drawText(painter, {12, 12}, text, style);
    return image;
}

} // namespace driftbox
