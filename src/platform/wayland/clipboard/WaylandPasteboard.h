#pragma once

#include "platform/selection/PrefetchedPasteboard.h"

#include <memory>

namespace driftbox {

class ClipboardThread;
class OfferedContent;
struct RawContent;

/// The compositor's clipboard as the general pasteboard, regardless of the keyboard focus.
///
/// Copied content is fetched as soon as the compositor announces it. When its owner withdraws it,
/// this program offers the fetched content, because the compositor does not tell whether the owner
/// has ended or has cleared the clipboard. Secret content is never fetched.
class WaylandPasteboard final : public PrefetchedPasteboard
{
    Q_OBJECT

public:
    /// All of them must outlive the pasteboard.
    WaylandPasteboard(ClipboardThread& thread, TaskRunner& taskRunner);
    ~WaylandPasteboard() override;

    void write(const PasteboardContent& content) override;

private:
    void contentRead(quint64 claim, const std::shared_ptr<RawContent>& content, bool isInitial);
    void contentDecoded(const PasteboardContent& content, bool isInitial);
    void opaqueFormatRead(quint64 claim, const QByteArray& type, const QByteArray& bytes);
    void ownerVanished(quint64 claim);
    void cleared(quint64 claim);
    void claim(const OfferedContent& content);
    void keepOffering();

    ClipboardThread& m_thread;
    quint64 m_claim = 0;
    std::unique_ptr<QObject> m_decoding; ///< owns what waits for the decoded content
    OpaqueFormats m_early;               ///< opaque formats that came before the decoded content
    bool m_hasOwnerVanished = false;     ///< while its content is still being decoded
};

} // namespace driftbox
