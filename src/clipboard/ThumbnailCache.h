#pragma once

#include "clipboard/ClipboardItem.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtGui/QImage>

namespace driftbox {

class FileSystem;
class TaskRunner;

/// Pictures of the history, decoded off the main thread and kept at the size at which they are
/// shown. Main thread only.
class ThumbnailCache : public QObject
{
    Q_OBJECT

public:
    /// The largest size at which a picture is shown, in points.
    static constexpr QSize maxSize{220, 60};

    /// `fileSystem` and `tasks` must outlive the cache.
    ThumbnailCache(const FileSystem& fileSystem, TaskRunner& tasks, QObject* parent = nullptr);

    /// The picture if it is here. Otherwise a null image, and the file at `path` is read and
    /// decoded: `imageLoaded` tells when it is here. Nothing is told or remembered of a failure.
    [[nodiscard]] QImage image(const ClipboardItemId& id, const QString& path);

    void remove(const ClipboardItemId& id);
    void clear();

    /// Device pixels a point of the screen that shows the pictures. A change empties the cache.
    void setPixelRatio(qreal ratio);

Q_SIGNALS:
    void imageLoaded(const driftbox::ClipboardItemId& id);

private:
    void load(const ClipboardItemId& id, const QString& path);

    const FileSystem& m_fileSystem;
    TaskRunner& m_tasks;
    qreal m_pixelRatio = 1.0;
    QHash<ClipboardItemId, QImage> m_images;
    QHash<ClipboardItemId, quint64> m_loading; ///< the generation of the load that is under way
    quint64 m_generation = 0;
};

} // namespace driftbox
