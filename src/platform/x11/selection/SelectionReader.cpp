#include "platform/x11/selection/SelectionReader.h"

#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/selection/RequestorWindows.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(selectionReaderLog, "SelectionReader")

using Outcome = SelectionTransfer::Outcome;

constexpr qsizetype targetsLimit = 64 * kibibyte;

QSet<QByteArray> knownNamesAmong(const QByteArray& atoms, X11Connection& connection)
{
    std::vector<xcb_atom_t> offered(static_cast<std::size_t>(atoms.size()) / sizeof(xcb_atom_t));
    std::memcpy(offered.data(), atoms.constData(), offered.size() * sizeof(xcb_atom_t));
    QSet<QByteArray> names;
    for (const QByteArray& name : PasteboardTargets::knownNames()) {
        if (std::ranges::find(offered, connection.atom(name)) != offered.end())
            names.insert(name);
    }
    return names;
}

TransferFailure failureOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::timedOut:
        return TransferFailure::timedOut;
    case Outcome::tooLarge:
        return TransferFailure::tooLarge;
    case Outcome::malformed:
        return TransferFailure::malformed;
    case Outcome::complete:
    case Outcome::refused:
        break;
    }
    Q_UNREACHABLE();
}

} // namespace

SelectionReader::SelectionReader(const Services& services, xcb_atom_t selection,
                                 xcb_timestamp_t time, Wanted wanted)
    : m_services(services)
    , m_selection(selection)
    , m_time(time)
    , m_wanted(wanted)
{
    request(services.connection.atom("TARGETS"), targetsLimit, &SelectionReader::targetsArrived);
}

SelectionReader::~SelectionReader()
{
    if (m_transfer)
        m_services.windows.retireCurrent();
}

void SelectionReader::request(xcb_atom_t target, qsizetype limit,
                              void (SelectionReader::*arrived)(const SelectionTransfer::Result&))
{
    m_transfer = std::make_unique<SelectionTransfer>(
        m_services.connection, m_services.clock,
        SelectionTransfer::Request{.requestor = m_services.windows.current(),
                                   .selection = m_selection,
                                   .target = target,
                                   .time = m_time,
                                   .limit = limit},
        [this, arrived](const SelectionTransfer::Result& result) {
            if (result.isAbandoned())
                m_services.windows.retireCurrent();
            if (result.outcome == Outcome::timedOut)
                ++m_timeouts;
            m_transfer.reset();
            (this->*arrived)(result);
        });
}

void SelectionReader::targetsArrived(const SelectionTransfer::Result& result)
{
    if (m_hasOwnerVanished)
        plan({});
    else if (result.outcome == Outcome::complete && result.format == 32)
        plan(PasteboardTargets::choose(
            knownNamesAmong(result.pieces.join(), m_services.connection)));
    else
        plan(PasteboardTargets::chooseDefault());
    nextStep();
}

void SelectionReader::plan(const TargetChoice& choice)
{
    if (m_wanted == Wanted::text) {
        m_steps = {{Format::text, choice.text}};
        return;
    }
    m_steps = {
        {Format::image, choice.image}, {Format::text, choice.text}, {Format::rtf, choice.rtf}};
    m_opaque = choice.opaque;
}

void SelectionReader::nextStep()
{
    while (!m_steps.empty() && m_steps.front().candidates.isEmpty())
        m_steps.pop_front();
    if (m_steps.empty() || m_timeouts >= TransferLimits::maxTimeouts) {
        m_steps.clear();
        return m_hasReadContent ? finish() : decodeContent();
    }
    m_target = m_steps.front().candidates.takeFirst();
    request(m_services.connection.atom(m_target),
            m_steps.front().format == Format::opaque ? TransferLimits::opaqueSize
                                                     : TransferLimits::contentSize,
            &SelectionReader::formatArrived);
}

void SelectionReader::formatArrived(const SelectionTransfer::Result& result)
{
    Step& step = m_steps.front();
    const Format format = step.format;
    if (result.outcome == Outcome::refused)
        return nextStep(); // with the next candidate, if any
    step.candidates.clear();
    const QPointer<SelectionReader> self(this);
    if (result.outcome != Outcome::complete)
        logFailure(format, result.outcome);
    else if (result.format != 8)
        logFailure(format, Outcome::malformed);
    else
        keep(format, result.pieces);
    if (self)
        nextStep();
}

void SelectionReader::keep(Format format, const QByteArrayList& pieces)
{
    switch (format) {
    case Format::image:
        m_raw.image = pieces;
        break;
    case Format::text:
        m_raw.text = pieces;
        m_raw.textTarget = m_target;
        break;
    case Format::rtf:
        m_raw.rtf = pieces;
        break;
    case Format::opaque:
        Q_EMIT opaqueFormatRead(m_target, pieces.join());
        break;
    }
}

void SelectionReader::logFailure(Format format, Outcome outcome)
{
    const QString line = refusalLine(format, failureOf(outcome));
    if (!line.isEmpty())
        qCWarning(selectionReaderLog).noquote() << line;
}

void SelectionReader::ownerHasVanished()
{
    m_hasOwnerVanished = true;
    m_opaque.clear();
    if (m_steps.size() > 1)
        m_steps.resize(1); // the current one
    for (Step& step : m_steps)
        step.candidates.clear();
    if (m_transfer)
        m_transfer->ownerHasVanished();
}

void SelectionReader::decodeContent()
{
    decode(std::move(m_raw), m_services.taskRunner, this,
           [this](const PasteboardContent& content) { publish(content); });
}

void SelectionReader::publish(const PasteboardContent& content)
{
    m_hasReadContent = true;
    for (const QByteArray& name : std::as_const(m_opaque))
        m_steps.push_back({Format::opaque, {name}});
    const QPointer<SelectionReader> self(this);
    Q_EMIT contentRead(content);
    if (self)
        nextStep();
}

void SelectionReader::finish()
{
    m_isFinished = true;
    Q_EMIT finished();
}

} // namespace driftbox
