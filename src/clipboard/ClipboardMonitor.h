#pragma once

#include "clipboard/ClipboardItem.h"
#include "platform/Clock.h"

#include <functional>
#include <memory>
#include <optional>

#include <QtCore/QObject>

namespace driftbox {

class Pasteboard;
struct PasteboardContent;

/// Watches the pasteboard for what the user copies and hands on each new capture, except what
/// repeats the last one and what was there when the program started. Main thread only; failures of
/// the pasteboard show as nothing to capture.
class ClipboardMonitor : public QObject
{
    Q_OBJECT

public:
    struct CapturedContent
    {
        ClipboardItem::Kind kind = ClipboardItem::Kind::text;
        std::optional<QString> text = {};         ///< at most 4000 user-perceived characters
        std::optional<QByteArray> imageData = {}; ///< PNG
        std::optional<QByteArray> rtfData = {};   ///< at most 65,536 bytes

        bool operator==(const CapturedContent&) const = default;
    };
    using CaptureCallback = std::function<void(const CapturedContent&)>;

    /// `pasteboard` and `clock` must outlive the monitor.
    ClipboardMonitor(Pasteboard& pasteboard, Clock& clock, QObject* parent = nullptr);

    /// Begins polling, for the life of the monitor. Again: nothing.
    void start();

    void setOnCapture(CaptureCallback onCapture) { m_onCapture = std::move(onCapture); }

    /// What is on the pasteboard, as it would be captured: an image before text.
    [[nodiscard]] std::optional<CapturedContent> read() const;

    /// What two captures have in common when the second repeats the first. Images are compared by
    /// size and first bytes alone, deliberately: it is cheap.
    [[nodiscard]] static QString signature(const CapturedContent& content);

    /// What is on the pasteboard now is known and will not be captured.
    void markSeen();

    /// Looks once; capturing happens before this returns.
    void tick();

private:
    [[nodiscard]] std::optional<QString> currentSignature() const;

    Pasteboard& m_pasteboard;
    Clock& m_clock;
    qint64 m_lastChangeCount;
    std::optional<QString> m_lastSignature;
    std::unique_ptr<Repetition> m_timer;
    CaptureCallback m_onCapture;
};

} // namespace driftbox
