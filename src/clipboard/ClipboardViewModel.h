#pragma once

#include "clipboard/ClipboardItem.h"
#include "clipboard/ClipboardMonitor.h"
#include "clipboard/ClipboardSearch.h"

#include <optional>
#include <vector>

#include <QtCore/QObject>
#include <QtGui/QImage>

namespace driftbox {

class AppSettings;
class ClipboardStore;
class Clock;
class FileSystem;
class PasteRequest;
class PasteboardWriter;
class TaskRunner;
class TextRecognizer;
class ThumbnailCache;

/// The dependencies of the clipboard history, all of which must outlive the view model.
struct ClipboardServices
{
    ClipboardStore& store;
    ClipboardMonitor& monitor;
    const AppSettings& settings;
    PasteboardWriter& pasteboardWriter;
    PasteRequest& pasteRequest;
    ThumbnailCache& thumbnails;
    const FileSystem& fileSystem;
    TaskRunner& tasks;
    const TextRecognizer& recognizer;
    const Clock& clock;
};

/// The clipboard history as shown by views, and all its actions. Adds the monitor's captures to the
/// store. An action that fails has no effect and reports nothing; the store logs its own errors.
/// Main thread only.
class ClipboardViewModel : public QObject
{
    Q_OBJECT

public:
    explicit ClipboardViewModel(const ClipboardServices& services, QObject* parent = nullptr);

    /// The whole history, front first.
    [[nodiscard]] const std::vector<ClipboardItem>& items() const { return m_items; }
    [[nodiscard]] qsizetype pinnedCount() const;
    [[nodiscard]] qsizetype unpinnedCount() const;

    [[nodiscard]] const QString& query() const { return m_query; }
    void setQuery(const QString& query);

    /// The items that match the query, in order: all of them if it is blank, else the texts that
    /// contain it, ignoring case.
    [[nodiscard]] std::vector<ClipboardItem> visibleItems() const;

    /// The image item whose text is being recognized, if any.
    [[nodiscard]] const std::optional<ClipboardItemId>& ocrProcessingId() const
    {
        return m_ocrProcessingId;
    }

    /// Puts the item on the pasteboard in all its formats and moves it to the front. Has no effect
    /// if the file of an image cannot be read.
    void copyBack(const ClipboardItem& item);
    /// Puts the item on the pasteboard as plain text, moves it to the front and requests a paste.
    void copyBackAsPlain(const ClipboardItem& item);
    /// Recognizes the text in an image item in the background, then puts it on the pasteboard and
    /// requests a paste. Has no effect if the image contains no text.
    void pasteImageText(const ClipboardItem& item);
    /// Calls `copyBack` and requests a paste.
    void pick(const ClipboardItem& item);

    void togglePin(const ClipboardItem& item);
    void remove(const ClipboardItem& item);
    void clearUnpinned();

    /// The thumbnail of an image item; null for text, while it is being loaded (`imageChanged` is
    /// emitted once it is available) and if it cannot be loaded.
    [[nodiscard]] QImage image(const ClipboardItem& item) const;
    /// The device pixel ratio of the screen that shows the thumbnails. A change discards them all.
    void setImagePixelRatio(qreal ratio);

Q_SIGNALS:
    void itemsChanged();
    void queryChanged();
    void ocrProcessingIdChanged();
    void imageChanged(const driftbox::ClipboardItemId& id);

private:
    void handleCapture(const ClipboardMonitor::CapturedContent& content);
    void refresh();
    void setOcrProcessingId(const std::optional<ClipboardItemId>& id);

    ClipboardServices m_services;
    std::vector<ClipboardItem> m_items;
    QString m_query;
    mutable ClipboardSearch m_search;
    std::optional<ClipboardItemId> m_ocrProcessingId;
};

} // namespace driftbox
