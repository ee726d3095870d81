#include "platform/wayland/clipboard/OfferReader.h"

#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(offerReaderLog, "OfferReader")

struct Pipe
{
    FileDescriptor forReading;
    FileDescriptor forWriting;
};

// Reading does not block; what the other program gets does, as programs expect.
Pipe makePipe()
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return {};
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

TransferFailure failureOf(PipeReader::Outcome outcome)
{
    switch (outcome) {
    case PipeReader::Outcome::timedOut:
        return TransferFailure::timedOut;
    case PipeReader::Outcome::tooLarge:
        return TransferFailure::tooLarge;
    case PipeReader::Outcome::failed:
        return TransferFailure::malformed;
    case PipeReader::Outcome::complete:
        break;
    }
    Q_UNREACHABLE();
}

} // namespace

OfferReader::OfferReader(DataOffer& offer, Wanted wanted, std::chrono::milliseconds deadline)
    : m_offer(offer)
    , m_deadline(deadline)
{
    plan(wanted);
    QMetaObject::invokeMethod(this, &OfferReader::nextStep, Qt::QueuedConnection);
}

OfferReader::~OfferReader() = default;

void OfferReader::plan(Wanted wanted)
{
    const TargetChoice choice = PasteboardTargets::choose(m_offer.types());
    if (wanted == Wanted::everything)
        addStep(ContentFormat::image, choice.image);
    addStep(ContentFormat::text, choice.text);
    if (wanted == Wanted::text)
        return;
    addStep(ContentFormat::rtf, choice.rtf);
    for (const QByteArray& type : choice.opaque)
        m_steps.push_back({ContentFormat::opaque, type});
}

void OfferReader::addStep(ContentFormat format, const QByteArrayList& types)
{
    if (!types.isEmpty())
        m_steps.push_back({format, types.front()});
}

void OfferReader::nextStep()
{
    if (m_isFinished)
        return; // the owner vanished before the first step
    if (m_timeouts >= TransferLimits::maxTimeouts)
        m_steps.clear();
    const bool isContentComplete =
        m_steps.empty() || m_steps.front().format == ContentFormat::opaque;
    if (isContentComplete && !m_hasReadContent) {
        const QPointer<OfferReader> self(this);
        publish();
        if (!self)
            return;
    }
    if (m_steps.empty())
        return finish();
    const Step step = m_steps.front();
    m_steps.pop_front();
    request(step);
}

void OfferReader::request(const Step& step)
{
    Pipe pipe = makePipe();
    if (!pipe.forReading.isOpen())
        return arrived(step, {PipeReader::Outcome::failed, {}});
    m_offer.receive(step.type, pipe.forWriting);
    const qsizetype limit = step.format == ContentFormat::opaque ? TransferLimits::opaqueSize
                                                                 : TransferLimits::contentSize;
    m_pipe = std::make_unique<PipeReader>(
        std::move(pipe.forReading), PipeReader::Limits{limit, m_deadline},
        [this, step](const PipeReader::Result& result) { arrived(step, result); });
}

void OfferReader::arrived(const Step& step, const PipeReader::Result& result)
{
    if (result.outcome == PipeReader::Outcome::timedOut)
        ++m_timeouts;
    const QPointer<OfferReader> self(this);
    if (result.outcome == PipeReader::Outcome::complete) {
        keep(step, result.pieces);
    } else if (const QString line = refusalLine(step.format, failureOf(result.outcome));
               !line.isEmpty()) {
        qCWarning(offerReaderLog).noquote() << line;
    }
    if (self)
        nextStep();
}

void OfferReader::keep(const Step& step, const QByteArrayList& pieces)
{
    // An owner that does not have a type after all can only close the pipe.
    if (pieces.isEmpty() && step.format != ContentFormat::text)
        return;
    switch (step.format) {
    case ContentFormat::image:
        m_raw->image = pieces;
        break;
    case ContentFormat::text:
        m_raw->text = pieces;
        m_raw->textTarget = step.type;
        break;
    case ContentFormat::rtf:
        m_raw->rtf = pieces;
        break;
    case ContentFormat::opaque:
        Q_EMIT opaqueFormatRead(step.type, pieces.join());
        break;
    }
}

void OfferReader::publish()
{
    m_hasReadContent = true;
    Q_EMIT contentRead(std::exchange(m_raw, nullptr));
}

void OfferReader::ownerHasVanished()
{
    m_steps.clear();
    m_pipe.reset();
    nextStep();
}

void OfferReader::finish()
{
    m_isFinished = true;
    Q_EMIT finished();
}

} // namespace driftbox
