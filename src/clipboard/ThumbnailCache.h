#pragma once

#include "clipboard/ClipboardItem.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtGui/QImage>

namespace driftbox {

class FileSystem;
class TaskRunner;

/// Thumbnails of the history's pictures, decoded on a background thread. Main thread only.
class ThumbnailCache : public QObject
{
    Q_OBJECT

public:
    /// The maximum size of a thumbnail, in points.
    static constexpr QSize maxSize{220, 60};

    /// `fileSystem` and `tasks` must outlive the cache.
    ThumbnailCache(const FileSystem& fileSystem, TaskRunner& tasks, QObject* parent = nullptr);

    /// The thumbnail if it is cached. Otherwise starts loading the file at `path`, returns a null
    /// image and emits `imageLoaded` on success. Failures are not reported or cached.
    [[nodiscard]] QImage image(const ClipboardItemId& id, const QString& path);

    void remove(const ClipboardItemId& id);
    void clear();

    /// The device pixel ratio of the screen that shows the thumbnails. A change clears the cache.
    void setPixelRatio(qreal ratio);

Q_SIGNALS:
    void imageLoaded(const driftbox::ClipboardItemId& id);

private:
    void load(const ClipboardItemId& id, const QString& path);

    const FileSystem& m_fileSystem;
    TaskRunner& m_tasks;
    qreal m_pixelRatio = 1.0;
    QHash<ClipboardItemId, QImage> m_images;
    QHash<ClipboardItemId, quint64> m_loading; ///< the generations of the pending loads
    quint64 m_generation = 0;
};

} // namespace driftbox
