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

/// Polls the pasteboard and reports each new capture, except repetitions of the last one and the
/// content that was there when the program started. If the pasteboard fails, there is nothing to
/// capture. Main thread only.
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

    /// Starts polling, for the monitor's lifetime. Calling it again has no effect.
    void start();

    void setOnCapture(CaptureCallback onCapture) { m_onCapture = std::move(onCapture); }

    /// The pasteboard's content as it would be captured: an image takes precedence over text.
    [[nodiscard]] std::optional<CapturedContent> read() const;

    /// Captures with equal signatures count as repetitions. For speed, an image's signature
    /// consists only of its size and first bytes.
    [[nodiscard]] static QString signature(const CapturedContent& content);

    /// Marks the pasteboard's current content as known, so that it is not captured.
    void markSeen();

    /// Checks the pasteboard once; a capture is reported before this returns.
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
