#include "platform/wayland/clipboard/DataControlClipboard.h"

#include "platform/wayland/connection/WaylandConnection.h"

#include <utility>

#include <QtCore/QRandomGenerator>

namespace driftbox {

namespace {

// Programs that paste and do not read must not use up the file descriptors.
constexpr std::size_t maxWriters = 128;

} // namespace

std::unique_ptr<DataControlClipboard> DataControlClipboard::open(std::chrono::milliseconds deadline)
{
    auto connection = WaylandConnection::open();
    if (!connection)
        return nullptr;
    std::unique_ptr<DataControlClipboard> clipboard(
        new DataControlClipboard(std::move(connection), deadline));
    return clipboard->m_device ? std::move(clipboard) : nullptr;
}

DataControlClipboard::DataControlClipboard(std::unique_ptr<WaylandConnection> connection,
                                           std::chrono::milliseconds deadline)
    : m_ownType("application/x-driftbox-offer-" +
                QByteArray::number(QRandomGenerator::system()->generate64(), 16))
    , m_deadline(deadline)
    , m_connection(std::move(connection))
    , m_device(DataControlDevice::bind(*m_connection, m_ownType, *this))
{
}

DataControlClipboard::~DataControlClipboard()
{
    // Offers and device are gone before the connection is.
    m_reader.reset();
    m_selection.reset();
    m_primaryReader.reset();
    m_primary.reset();
    m_device.reset();
}

void DataControlClipboard::claim(quint64 number, const OfferedContent& content)
{
    m_claim = number;
    m_content = content;
    m_reader.reset();
    m_selection.reset();
    m_hasSeenSelection = true;
    m_hasOwnerVanished = false;
    m_isClaiming = true;
    m_owner = Owner::self;
    m_device->offer(content.targets());
}

void DataControlClipboard::offerTaken()
{
    m_isClaiming = false;
}

void DataControlClipboard::selectionChanged(std::unique_ptr<DataOffer> offer)
{
    const bool isInitial = !std::exchange(m_hasSeenSelection, true);
    // What was copied before the compositor heard of a claim has lost to that.
    if (m_isClaiming)
        return;
    if (offer && offer->types().contains(m_ownType))
        return;
    if (offer)
        read(std::move(offer), isInitial);
    else
        selectionVanished();
}

void DataControlClipboard::read(std::unique_ptr<DataOffer> offer, bool isInitial)
{
    m_owner = Owner::other;
    m_hasOwnerVanished = false;
    m_reader.reset();
    m_selection = std::move(offer);
    m_reader =
        std::make_unique<OfferReader>(*m_selection, OfferReader::Wanted::everything, m_deadline);
    connect(m_reader.get(), &OfferReader::contentRead, this,
            [this, isInitial](const std::shared_ptr<RawContent>& content) {
                Q_EMIT contentRead(m_claim, content, isInitial);
            });
    connect(m_reader.get(), &OfferReader::opaqueFormatRead, this,
            [this](const QByteArray& type, const QByteArray& bytes) {
                Q_EMIT opaqueFormatRead(m_claim, type, bytes);
            });
    connect(m_reader.get(), &OfferReader::finished, this, [this] {
        if (std::exchange(m_hasOwnerVanished, false))
            Q_EMIT ownerVanished(m_claim);
    });
}

void DataControlClipboard::selectionVanished()
{
    const Owner before = std::exchange(m_owner, Owner::nobody);
    if (before == Owner::self) {
        Q_EMIT cleared(m_claim);
    } else if (before == Owner::other && m_reader && !m_reader->isFinished()) {
        m_hasOwnerVanished = true;
        m_reader->ownerHasVanished();
    } else if (before == Owner::other) {
        Q_EMIT ownerVanished(m_claim);
    }
}

void DataControlClipboard::primarySelectionChanged(std::unique_ptr<DataOffer> offer)
{
    m_primaryReader.reset();
    m_primary = std::move(offer);
}

void DataControlClipboard::readSelectedText(quint64 request)
{
    m_primaryReader.reset();
    if (!m_primary) {
        Q_EMIT selectedTextRead(request, std::make_shared<RawContent>());
        return;
    }
    m_primaryReader =
        std::make_unique<OfferReader>(*m_primary, OfferReader::Wanted::text, m_deadline);
    connect(m_primaryReader.get(), &OfferReader::contentRead, this,
            [this, request](const std::shared_ptr<RawContent>& content) {
                Q_EMIT selectedTextRead(request, content);
            });
}

void DataControlClipboard::dataRequested(const QByteArray& type, FileDescriptor pipe)
{
    if (!m_content.targets().contains(type))
        return;
    if (m_writers.size() >= maxWriters)
        m_writers.pop_front();
    const auto place = m_writers.emplace(m_writers.end());
    *place = std::make_unique<PipeWriter>(std::move(pipe), m_content.open(type),
                                          [this, place] { m_writers.erase(place); });
}

} // namespace driftbox
