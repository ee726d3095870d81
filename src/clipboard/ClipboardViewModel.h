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
class NotificationCenter;
class PasteboardWriter;
class TaskRunner;
class TextRecognizer;
class ThumbnailCache;

/// What the clipboard history stands on; all of it outlives the view model.
struct ClipboardServices
{
    ClipboardStore& store;
    ClipboardMonitor& monitor;
    const AppSettings& settings;
    PasteboardWriter& pasteboardWriter;
    NotificationCenter& notifications;
    ThumbnailCache& thumbnails;
    const FileSystem& fileSystem;
    TaskRunner& tasks;
    const TextRecognizer& recognizer;
    const Clock& clock;
};

/// The clipboard history as views see it, and all its actions. Takes the monitor's captures. What
/// an action cannot do it does not do, without a report; the store logs its own failures. Main
/// thread only.
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

    /// The items that match the query, in order: all of them while it is blank, else the texts that
    /// contain it in whatever case.
    [[nodiscard]] std::vector<ClipboardItem> visibleItems() const;

    /// The item whose text is being recognized.
    [[nodiscard]] const std::optional<ClipboardItemId>& ocrProcessingId() const
    {
        return m_ocrProcessingId;
    }

    /// Puts the item on the pasteboard, with all its forms, and moves it to the front. An image
    /// whose file cannot be read changes nothing.
    void copyBack(const ClipboardItem& item);
    /// Puts the item's text alone on the pasteboard, moves it to the front and asks for it to be
    /// pasted.
    void copyBackAsPlain(const ClipboardItem& item);
    /// Recognizes the text in an image item in the background, then puts it on the pasteboard and
    /// asks for it to be pasted. An image without text pastes nothing.
    void pasteImageText(const ClipboardItem& item);
    /// `copyBack`, then asks for it to be pasted.
    void pick(const ClipboardItem& item);

    void togglePin(const ClipboardItem& item);
    void remove(const ClipboardItem& item);
    void clearUnpinned();

    /// The picture of an image item at the size at which rows show it; null while it is being
    /// loaded, when it cannot be, and for text. `imageChanged` tells when it has come.
    [[nodiscard]] QImage image(const ClipboardItem& item) const;
    /// Device pixels a point of the screen that shows the pictures. Another one drops them all.
    void setImagePixelRatio(qreal ratio);

Q_SIGNALS:
    void itemsChanged();
    void queryChanged();
    void ocrProcessingIdChanged();
    void imageChanged(const driftbox::ClipboardItemId& id);

private:
    void handleCapture(const ClipboardMonitor::CapturedContent& content);
    void refresh();
    void requestPaste();
    void setOcrProcessingId(const std::optional<ClipboardItemId>& id);

    ClipboardServices m_services;
    std::vector<ClipboardItem> m_items;
    QString m_query;
    mutable ClipboardSearch m_search;
    std::optional<ClipboardItemId> m_ocrProcessingId;
};

} // namespace driftbox
