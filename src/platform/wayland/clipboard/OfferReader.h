#pragma once

#include "platform/selection/ContentDecoding.h"
#include "platform/selection/FormatTransfer.h"
#include "platform/wayland/clipboard/DataControlDevice.h"
#include "platform/wayland/clipboard/PipeReader.h"

#include <deque>
#include <memory>

#include <QtCore/QObject>

namespace driftbox {

/// Reads the formats of an offer one after the other, once. Belongs to the thread of the offer. A
/// refused format is logged. Destroying the reader cancels pending transfers.
class OfferReader final : public QObject
{
    Q_OBJECT

public:
    enum class Wanted : std::uint8_t { everything, text };

    /// Begins at once. `deadline` is that of each format. `offer` must outlive the reader.
    OfferReader(DataOffer& offer, Wanted wanted, std::chrono::milliseconds deadline);
    ~OfferReader() override;

    [[nodiscard]] bool isFinished() const { return m_isFinished; }

    /// Finishes with the formats that have arrived.
    void ownerHasVanished();

Q_SIGNALS:
    /// Emitted once, from the event loop, also when nothing could be had.
    void contentRead(const std::shared_ptr<driftbox::RawContent>& content);
    void opaqueFormatRead(const QByteArray& type, const QByteArray& bytes);
    /// There is nothing more to come.
    void finished();

private:
    struct Step
    {
        ContentFormat format;
        QByteArray type;
    };

    void plan(Wanted wanted);
    void addStep(ContentFormat format, const QByteArrayList& types);
    void nextStep();
    void request(const Step& step);
    void arrived(const Step& step, const PipeReader::Result& result);
    void keep(const Step& step, const QByteArrayList& pieces);
    void publish();
    void finish();

    DataOffer& m_offer;
    const std::chrono::milliseconds m_deadline;
    std::unique_ptr<PipeReader> m_pipe;
    std::deque<Step> m_steps;
    std::shared_ptr<RawContent> m_raw = std::make_shared<RawContent>();
    int m_timeouts = 0;
    bool m_hasReadContent = false;
    bool m_isFinished = false;
};

} // namespace driftbox
