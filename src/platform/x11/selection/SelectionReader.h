#pragma once

#include "platform/selection/ContentDecoding.h"
#include "platform/selection/PasteboardTargets.h"
#include "platform/x11/selection/SelectionTransfer.h"

#include <deque>
#include <memory>

namespace driftbox {

class RequestorWindows;
class TaskRunner;

/// Reads what the present owner of the clipboard offers, once. Main thread only.
///
/// The owner is asked which targets it has, then for one format after the other, and what arrives
/// is decoded; then `contentRead` is emitted, also when nothing could be had. Opaque formats
/// follow. A format that is refused costs one log line. Destroying the reader gives up what is
/// still under way: it takes one reader per change of the clipboard.
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

    /// Makes do with what the owner had handed over before it ended.
    void ownerHasVanished();

Q_SIGNALS:
    /// Emitted once.
    void contentRead(const driftbox::PasteboardContent& content);
    void opaqueFormatRead(const QByteArray& target, const QByteArray& bytes);
    /// There is nothing more to come.
    void finished();

private:
    enum class Format : std::uint8_t { image, text, rtf, opaque };

    struct Step
    {
        Format format;
        QByteArrayList candidates; ///< targets still to be tried
    };

    void request(xcb_atom_t target, qsizetype limit,
                 void (SelectionReader::*arrived)(const SelectionTransfer::Result&));
    void targetsArrived(const SelectionTransfer::Result& result);
    void plan(const TargetChoice& choice);
    void nextStep();
    void formatArrived(const SelectionTransfer::Result& result);
    void keep(Format format, const QByteArrayList& pieces);
    void noteFailure(Format format, SelectionTransfer::Outcome outcome);
    void decodeContent();
    void publish(const DecodedContent& decoded);
    void finish();

    const Services m_services;
    const xcb_atom_t m_selection;
    const xcb_timestamp_t m_time;
    const Wanted m_wanted;
    std::unique_ptr<SelectionTransfer> m_transfer;
    std::deque<Step> m_steps;
    QByteArrayList m_opaque; ///< to be asked for after the content
    QByteArray m_target;     ///< the one that is under way
    RawContent m_raw;
    int m_silences = 0;
    bool m_hasReadContent = false;
    bool m_hasOwnerVanished = false;
    bool m_isFinished = false;
};

} // namespace driftbox
