#pragma once

#include "platform/selection/OfferedContent.h"
#include "platform/wayland/clipboard/DataControlDevice.h"
#include "platform/wayland/clipboard/OfferReader.h"
#include "platform/wayland/clipboard/PipeWriter.h"

#include <list>
#include <memory>

#include <QtCore/QObject>

namespace driftbox {

class WaylandConnection;

/// The compositor's clipboard: reads what other programs copy as soon as they copy it, and offers
/// what this program writes. Lives in a thread of its own, so that a program that pastes is served
/// even while the main thread waits for that program.
///
/// Every signal carries the number of the latest claim known to this object; a receiver that has
/// made a later claim drops it as stale.
class DataControlClipboard final : public QObject, private DataControlDevice::Listener
{
    Q_OBJECT

public:
    /// Null when the compositor offers no data control. `deadline` is that of each format.
    [[nodiscard]] static std::unique_ptr<DataControlClipboard>
    open(std::chrono::milliseconds deadline);
    ~DataControlClipboard() override;

    /// Makes this program the owner of the clipboard, with `content`.
    void claim(quint64 number, const OfferedContent& content);

    /// Reads the text of the primary selection. `selectedTextRead` follows unless a later request
    /// replaces this one.
    void readSelectedText(quint64 request);

Q_SIGNALS:
    /// Another program has copied. `isInitial`: before this object was made.
    void contentRead(quint64 claim, const std::shared_ptr<driftbox::RawContent>& content,
                     bool isInitial);
    void opaqueFormatRead(quint64 claim, const QByteArray& type, const QByteArray& bytes);
    /// The program that had copied offers its content no longer; all that could be read of it has
    /// been.
    void ownerVanished(quint64 claim);
    /// Another program has emptied the clipboard that this one owned.
    void cleared(quint64 claim);
    void selectedTextRead(quint64 request, const std::shared_ptr<driftbox::RawContent>& content);

private:
    DataControlClipboard(std::unique_ptr<WaylandConnection> connection,
                         std::chrono::milliseconds deadline);

    void selectionChanged(std::unique_ptr<DataOffer> offer) override;
    void primarySelectionChanged(std::unique_ptr<DataOffer> offer) override;
    void dataRequested(const QByteArray& type, FileDescriptor pipe) override;
    void offerTaken() override;

    void read(std::unique_ptr<DataOffer> offer, bool isInitial);
    void selectionVanished();

    enum class Owner : std::uint8_t { nobody, other, self };

    const QByteArray m_ownType;
    const std::chrono::milliseconds m_deadline;
    const std::unique_ptr<WaylandConnection> m_connection;
    std::unique_ptr<DataControlDevice> m_device;
    std::unique_ptr<DataOffer> m_selection; ///< of another program
    std::unique_ptr<OfferReader> m_reader;
    std::unique_ptr<DataOffer> m_primary;
    std::unique_ptr<OfferReader> m_primaryReader;
    OfferedContent m_content; ///< of the last claim
    std::list<std::unique_ptr<PipeWriter>> m_writers;
    Owner m_owner = Owner::nobody;
    quint64 m_claim = 0;
    bool m_isClaiming = false; ///< the compositor has not carried out the last claim yet
    bool m_hasSeenSelection = false;
    bool m_hasOwnerVanished = false; ///< while its content is still being read
};

} // namespace driftbox
