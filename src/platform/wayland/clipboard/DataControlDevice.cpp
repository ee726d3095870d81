#include "platform/wayland/clipboard/DataControlDevice.h"

#include "platform/selection/PasteboardTargets.h"
#include "platform/wayland/connection/WaylandConnection.h"

#include <map>

#include <ext-data-control-v1.h>
#include <wayland-client-protocol.h>
#include <wlr-data-control-unstable-v1.h>

namespace driftbox {

namespace {

// The two protocols differ in nothing but their names.
struct Ext
{
    using Manager = ext_data_control_manager_v1;
    using Device = ext_data_control_device_v1;
    using Offer = ext_data_control_offer_v1;
    using Source = ext_data_control_source_v1;
    using DeviceListener = ext_data_control_device_v1_listener;
    using OfferListener = ext_data_control_offer_v1_listener;
    using SourceListener = ext_data_control_source_v1_listener;

    static constexpr std::uint32_t minVersion = 1;
    static constexpr std::uint32_t maxVersion = 1;
    static constexpr const wl_interface& managerInterface = ext_data_control_manager_v1_interface;
    static constexpr auto destroyManager = ext_data_control_manager_v1_destroy;
    static constexpr auto createSource = ext_data_control_manager_v1_create_data_source;
    static constexpr auto getDevice = ext_data_control_manager_v1_get_data_device;
    static constexpr auto destroyDevice = ext_data_control_device_v1_destroy;
    static constexpr auto setSelection = ext_data_control_device_v1_set_selection;
    static constexpr auto listenToDevice = ext_data_control_device_v1_add_listener;
    static constexpr auto destroyOffer = ext_data_control_offer_v1_destroy;
    static constexpr auto receive = ext_data_control_offer_v1_receive;
    static constexpr auto listenToOffer = ext_data_control_offer_v1_add_listener;
    static constexpr auto destroySource = ext_data_control_source_v1_destroy;
    static constexpr auto addType = ext_data_control_source_v1_offer;
    static constexpr auto listenToSource = ext_data_control_source_v1_add_listener;
};

struct Wlr
{
    using Manager = zwlr_data_control_manager_v1;
    using Device = zwlr_data_control_device_v1;
    using Offer = zwlr_data_control_offer_v1;
    using Source = zwlr_data_control_source_v1;
    using DeviceListener = zwlr_data_control_device_v1_listener;
    using OfferListener = zwlr_data_control_offer_v1_listener;
    using SourceListener = zwlr_data_control_source_v1_listener;

    static constexpr std::uint32_t minVersion = 1;
    static constexpr std::uint32_t maxVersion = 2; // with the primary selection
    static constexpr const wl_interface& managerInterface = zwlr_data_control_manager_v1_interface;
    static constexpr auto destroyManager = zwlr_data_control_manager_v1_destroy;
    static constexpr auto createSource = zwlr_data_control_manager_v1_create_data_source;
    static constexpr auto getDevice = zwlr_data_control_manager_v1_get_data_device;
    static constexpr auto destroyDevice = zwlr_data_control_device_v1_destroy;
    static constexpr auto setSelection = zwlr_data_control_device_v1_set_selection;
    static constexpr auto listenToDevice = zwlr_data_control_device_v1_add_listener;
    static constexpr auto destroyOffer = zwlr_data_control_offer_v1_destroy;
    static constexpr auto receive = zwlr_data_control_offer_v1_receive;
    static constexpr auto listenToOffer = zwlr_data_control_offer_v1_add_listener;
    static constexpr auto destroySource = zwlr_data_control_source_v1_destroy;
    static constexpr auto addType = zwlr_data_control_source_v1_offer;
    static constexpr auto listenToSource = zwlr_data_control_source_v1_add_listener;
};

template <typename Protocol>
class ProtocolOffer final : public DataOffer
{
public:
    ProtocolOffer(typename Protocol::Offer* offer, WaylandConnection& connection,
                  const QByteArray& ownType)
        : m_offer(offer)
        , m_connection(connection)
        , m_ownType(ownType)
    {
        static const typename Protocol::OfferListener listener{
            .offer = [](void* data, typename Protocol::Offer*, const char* type) {
                static_cast<ProtocolOffer*>(data)->addType(type);
            }};
        Protocol::listenToOffer(m_offer, &listener, this);
    }
    ~ProtocolOffer() override { Protocol::destroyOffer(m_offer); }
    Q_DISABLE_COPY_MOVE(ProtocolOffer)

    [[nodiscard]] const QSet<QByteArray>& types() const override { return m_types; }

    void receive(const QByteArray& type, const FileDescriptor& pipe) override
    {
        Protocol::receive(m_offer, type.constData(), pipe.get());
        m_connection.flush(); // which duplicates the descriptor
    }

private:
    void addType(const QByteArray& type)
    {
        if (type == m_ownType || PasteboardTargets::knownNames().contains(type))
            m_types.insert(type);
    }

    typename Protocol::Offer* const m_offer;
    WaylandConnection& m_connection;
    const QByteArray& m_ownType;
    QSet<QByteArray> m_types;
};

template <typename Protocol>
class ProtocolDevice final : public DataControlDevice
{
public:
    using Offer = typename Protocol::Offer;
    using Device = typename Protocol::Device;

    ProtocolDevice(WaylandConnection& connection, const QByteArray& ownType, Listener& receiver,
                   typename Protocol::Manager* manager, wl_seat* seat)
        : m_connection(connection)
        , m_ownType(ownType)
        , m_receiver(receiver)
        , m_manager(manager)
        , m_seat(seat)
        , m_device(Protocol::getDevice(manager, seat))
    {
        static const typename Protocol::DeviceListener listener{
            .data_offer = [](void* data, Device*, Offer* offer) { self(data).announce(offer); },
            .selection =
                [](void* data, Device*, Offer* offer) {
                    self(data).m_receiver.selectionChanged(self(data).take(offer));
                },
            .finished = [](void*, Device*) {}, // the seat has gone; nothing more will come
            .primary_selection =
                [](void* data, Device*, Offer* offer) {
                    self(data).m_receiver.primarySelectionChanged(self(data).take(offer));
                }};
        Protocol::listenToDevice(m_device, &listener, this);
        m_connection.flush();
    }

    ~ProtocolDevice() override
    {
        stopAwaiting();
        m_announced.clear();
        if (m_source != nullptr)
            Protocol::destroySource(m_source);
        Protocol::destroyDevice(m_device);
        wl_seat_destroy(m_seat);
        Protocol::destroyManager(m_manager);
        m_connection.flush();
    }
    Q_DISABLE_COPY_MOVE(ProtocolDevice)

    void offer(const QByteArrayList& types) override
    {
        static const typename Protocol::SourceListener listener{
            .send = [](void* data, typename Protocol::Source* source, const char* type,
                       int pipe) { self(data).request(source, type, FileDescriptor(pipe)); },
            .cancelled =
                [](void* data, typename Protocol::Source* source) {
                    if (self(data).m_source == source)
                        self(data).m_source = nullptr;
                    Protocol::destroySource(source);
                }};
        auto* source = Protocol::createSource(m_manager);
        Protocol::listenToSource(source, &listener, this);
        for (const QByteArray& type : types)
            Protocol::addType(source, type.constData());
        Protocol::addType(source, m_ownType.constData());
        m_source = source; // the one before is destroyed when the compositor cancels it
        Protocol::setSelection(m_device, source);
        awaitOffer();
        m_connection.flush();
    }

private:
    static ProtocolDevice& self(void* data) { return *static_cast<ProtocolDevice*>(data); }

    void announce(Offer* offer)
    {
        m_announced.insert(
            {offer, std::make_unique<ProtocolOffer<Protocol>>(offer, m_connection, m_ownType)});
    }

    std::unique_ptr<DataOffer> take(Offer* offer)
    {
        auto announced = m_announced.extract(offer);
        return announced ? std::move(announced.mapped()) : nullptr;
    }

    void request(typename Protocol::Source* source, const QByteArray& type, FileDescriptor pipe)
    {
        if (source == m_source)
            m_receiver.dataRequested(type, std::move(pipe));
    }

    // Awaits the last offer only: an answer to one before would come too early.
    void awaitOffer()
    {
        static const wl_callback_listener listener{
            .done = [](void* data, wl_callback*, std::uint32_t) {
                self(data).stopAwaiting();
                self(data).m_receiver.offerTaken();
            }};
        stopAwaiting();
        m_sync = wl_display_sync(m_connection.display());
        wl_callback_add_listener(m_sync, &listener, this);
    }

    void stopAwaiting()
    {
        if (m_sync != nullptr)
            wl_callback_destroy(m_sync);
        m_sync = nullptr;
    }

    WaylandConnection& m_connection;
    const QByteArray& m_ownType;
    Listener& m_receiver;
    typename Protocol::Manager* const m_manager;
    wl_seat* const m_seat;
    Device* const m_device;
    std::map<Offer*, std::unique_ptr<DataOffer>> m_announced; ///< of no selection yet
    typename Protocol::Source* m_source = nullptr;
    wl_callback* m_sync = nullptr; ///< of the last offer
};

template <typename Protocol>
std::unique_ptr<DataControlDevice> bindProtocol(WaylandConnection& connection,
                                                const QByteArray& ownType,
                                                DataControlDevice::Listener& listener)
{
    auto* manager = connection.bind<typename Protocol::Manager>(
        Protocol::managerInterface, Protocol::minVersion, Protocol::maxVersion);
    if (manager == nullptr)
        return nullptr;
    auto* seat = connection.bind<wl_seat>(wl_seat_interface, 1, 1);
    if (seat == nullptr) {
        Protocol::destroyManager(manager);
        return nullptr;
    }
    return std::make_unique<ProtocolDevice<Protocol>>(connection, ownType, listener, manager, seat);
}

} // namespace

std::unique_ptr<DataControlDevice> DataControlDevice::bind(WaylandConnection& connection,
                                                           const QByteArray& ownType,
                                                           Listener& listener)
{
    if (auto device = bindProtocol<Ext>(connection, ownType, listener))
        return device;
    return bindProtocol<Wlr>(connection, ownType, listener);
}

} // namespace driftbox
