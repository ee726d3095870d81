#pragma once

#include "platform/selection/ContentDecoding.h"
#include "platform/selection/FormatTransfer.h"
#include "platform/selection/PasteboardTargets.h"
#include "platform/x11/selection/SelectionTransfer.h"

#include <deque>
#include <memory>

namespace driftbox {

class RequestorWindows;
class TaskRunner;

/// Reads what the current owner of a selection offers, once. Main thread only.
///
/// The owner's targets are requested first, then one format after the other, and the data is
/// decoded; then `contentRead` is emitted, even when nothing could be read. Opaque formats follow.
/// A refused format is logged. Destroying the reader cancels what is pending; use one reader per
/// change of the clipboard.
class SelectionReader final : public QObject
{
    Q_OBJECT

public:
    struct Services
    {
        X11Connection& connection;
        Clock& clock;
        TaskRunner& taskRunner;
        RequestorWindows& windows;
    };

    enum class Wanted : std::uint8_t { everything, text };

    /// Reads `selection` as of `time`.
    SelectionReader(const Services& services, xcb_atom_t selection, xcb_timestamp_t time,
                    Wanted wanted = Wanted::everything);
    ~SelectionReader() override;

    [[nodiscard]] bool isFinished() const { return m_isFinished; }

    /// Finishes with what has been received so far.
    void ownerHasVanished();

Q_SIGNALS:
    /// Emitted once.
    void contentRead(const driftbox::PasteboardContent& content);
    void opaqueFormatRead(const QByteArray& target, const QByteArray& bytes);
    /// Everything has been read.
    void finished();

private:
    using Format = ContentFormat;

    struct Step
    {
        Format format;
        QByteArrayList candidates; ///< targets yet to be tried
    };

    void request(xcb_atom_t target, qsizetype limit,
                 void (SelectionReader::*arrived)(const SelectionTransfer::Result&));
    void targetsArrived(const SelectionTransfer::Result& result);
    void plan(const TargetChoice& choice);
    void nextStep();
    void formatArrived(const SelectionTransfer::Result& result);
    void keep(Format format, const QByteArrayList& pieces);
    void logFailure(Format format, SelectionTransfer::Outcome outcome);
    void decodeContent();
    void publish(const PasteboardContent& content);
    void finish();

    const Services m_services;
    const xcb_atom_t m_selection;
    const xcb_timestamp_t m_time;
    const Wanted m_wanted;
    std::unique_ptr<SelectionTransfer> m_transfer;
    std::deque<Step> m_steps;
    QByteArrayList m_opaque; ///< to be requested after the content
    QByteArray m_target;     ///< being transferred
    RawContent m_raw;
    int m_timeouts = 0;
    bool m_hasReadContent = false;
    bool m_hasOwnerVanished = false;
    bool m_isFinished = false;
};

} // namespace driftbox
