#include "ui/theme/Symbols.h"

#include <cmath>

#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

using namespace Qt::StringLiterals;

namespace driftbox::Symbols {

namespace {

Q_LOGGING_CATEGORY(symbolsLog, "Symbols")

// The drawings are 16 units wide and meant to go with text of 15 points.
constexpr qreal extentOfText = 16.0 / 15.0;
// Far more than the program shows at once; reached only when colors or scales keep changing.
constexpr qsizetype cachedPictures = 256;

struct Key
{
    QString name;
    int pixels;
    QRgb color;
    Weight weight;

    bool operator==(const Key&) const = default;
    friend size_t qHash(const Key& key, size_t seed = 0)
    {
        return qHashMulti(seed, key.name, key.pixels, key.color, static_cast<int>(key.weight));
    }
};

// In units of the drawing. The drawings come in one weight; a stroke around them makes others.
qreal strokeWidth(Weight weight)
{
    switch (weight) {
    case Weight::regular:
        return 0.0;
    case Weight::semibold:
        return 0.5;
    case Weight::bold:
        return 0.9;
    }
    Q_UNREACHABLE();
}

QByteArray drawing(const QString& name, const QColor& color, Weight weight)
{
    QFile file(u":/symbols/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray opaque = color.name(QColor::HexRgb).toLatin1();
    QByteArray attributes = '"' + opaque + '"';
    if (const qreal width = strokeWidth(weight); width > 0)
        attributes +=
            " stroke=\"" + opaque + "\" stroke-width=\"" + QByteArray::number(width) + '"';
    return file.readAll().replace("\"currentColor\"", attributes);
}

QPixmap render(const Key& key)
{
    const QColor color = QColor::fromRgba(key.color);
    QSvgRenderer renderer(drawing(key.name, color, key.weight));
    if (!renderer.isValid()) {
        qCWarning(symbolsLog).noquote() << u"There is no symbol %1"_s.arg(key.name);
        return {};
    }

    QImage picture(key.pixels, key.pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter, QRectF(picture.rect()));
    // Overlapping strokes must not show, so the whole is made translucent at once.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(picture.rect(), color);
    painter.end();
    return QPixmap::fromImage(std::move(picture));
}

// The application's, which pictures must not outlive.
class PictureCache final : public QObject
{
public:
    static PictureCache& shared()
    {
        static QPointer<PictureCache> cache;
        if (!cache)
            cache = new PictureCache(QCoreApplication::instance());
        return *cache;
    }

    [[nodiscard]] QPixmap picture(const Key& key)
    {
        const QPixmap* known = m_pictures.object(key);
        if (known)
            return *known;
        QPixmap made = render(key);
        m_pictures.insert(key, new QPixmap(made));
        return made;
    }

private:
    using QObject::QObject;

    QCache<Key, QPixmap> m_pictures{cachedPictures};
};

} // namespace

int extent(int size)
{
    return qRound(size * extentOfText);
}

QPixmap pixmap(const QString& name, const Style& style, qreal devicePixelRatio)
{
    const Key key{name, qRound(extent(style.size) * devicePixelRatio), style.color.rgba(),
                  style.weight};
    QPixmap result = PictureCache::shared().picture(key);
    result.setDevicePixelRatio(devicePixelRatio);
    return result;
}

void paint(QPainter& painter, const QRectF& area, const QString& name, const Style& style)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    const QPixmap picture = pixmap(name, style, ratio);
    const QPointF corner = area.center() - QRectF({}, picture.deviceIndependentSize()).center();
    painter.drawPixmap(
        QPointF(std::round(corner.x() * ratio), std::round(corner.y() * ratio)) / ratio, picture);
}

QIcon icon(const QString& name, const Style& style)
{
    QIcon result;
    for (const qreal ratio : {1.0, 2.0, 3.0})
        result.addPixmap(pixmap(name, style, ratio));
    return result;
}

} // namespace driftbox::Symbols
