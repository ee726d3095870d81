#include "clipboard/ThumbnailCache.h"

#include "platform/FileSystem.h"
#include "platform/TaskRunner.h"

#include <memory>
#include <utility>

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>

namespace driftbox {

namespace {

QImage decoded(QByteArray bytes, QSize maxSize, qreal pixelRatio)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    const QSizeF box = QSizeF(maxSize) * pixelRatio;
    if (size.width() > box.width() || size.height() > box.height()) {
        const QSize scaled = size.scaled(box.toSize(), Qt::KeepAspectRatio);
        reader.setScaledSize(scaled.expandedTo(QSize(1, 1)));
    }
    QImage image = reader.read();
    if (!image.isNull())
        image = std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    return image;
}

} // namespace

ThumbnailCache::ThumbnailCache(const FileSystem& fileSystem, TaskRunner& tasks, QObject* parent)
    : QObject(parent)
    , m_fileSystem(fileSystem)
    , m_tasks(tasks)
{
}

QImage ThumbnailCache::image(const ClipboardItemId& id, const QString& path)
{
    const auto found = m_images.constFind(id);
    if (found != m_images.cend())
        return *found;
    if (!m_loading.contains(id))
        load(id, path);
    return m_images.value(id);
}

void ThumbnailCache::load(const ClipboardItemId& id, const QString& path)
{
    const quint64 generation = ++m_generation;
    m_loading.insert(id, generation);

    const auto image = std::make_shared<QImage>();
    const auto work = [image, &files = m_fileSystem, path, ratio = m_pixelRatio] {
        if (const auto bytes = files.read(path))
            *image = decoded(*bytes, maxSize, ratio);
    };
    const auto done = [this, image, id, generation] {
        if (m_loading.value(id) != generation)
            return; // removed in the meantime
        m_loading.remove(id);
        if (image->isNull())
            return;
        m_images.insert(id, *image);
        Q_EMIT imageLoaded(id);
    };
    m_tasks.run(this, work, done);
}

void ThumbnailCache::remove(const ClipboardItemId& id)
{
    m_images.remove(id);
    m_loading.remove(id);
}

void ThumbnailCache::clear()
{
    m_images.clear();
    m_loading.clear();
}

void ThumbnailCache::setPixelRatio(qreal ratio)
{
    if (qFuzzyCompare(std::exchange(m_pixelRatio, ratio), ratio))
        return;
    clear();
}

} // namespace driftbox
