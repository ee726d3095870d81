#pragma once

#include "platform/FileDescriptor.h"

#include <memory>

#include <QtCore/QByteArrayList>
#include <QtCore/QSet>

namespace driftbox {

class WaylandConnection;

/// What another program offers. Only types that this program knows are kept, however many there
/// are.
class DataOffer
{
public:
    DataOffer() = default;
    virtual ~DataOffer() = default;
    Q_DISABLE_COPY_MOVE(DataOffer)

    [[nodiscard]] virtual const QSet<QByteArray>& types() const = 0;

    /// Has the offering program write `type` into a pipe, given by its write end.
    virtual void receive(const QByteArray& type, const FileDescriptor& pipe) = 0;
};

/// The selections of a seat as clipboard managers see them, regardless of the keyboard focus, over
/// ext-data-control-v1 or wlr-data-control-unstable-v1. Belongs to the thread of its connection.
class DataControlDevice
{
public:
    class Listener
    {
    public:
        Listener() = default;
        Q_DISABLE_COPY_MOVE(Listener)

        /// The selection has changed, possibly by this program. Null when it is empty. Called from
        /// the event loop, first for the initial selection.
        virtual void selectionChanged(std::unique_ptr<DataOffer> offer) = 0;
        virtual void primarySelectionChanged(std::unique_ptr<DataOffer> offer) = 0;
        /// Another program wants what this one offers.
        virtual void dataRequested(const QByteArray& type, FileDescriptor pipe) = 0;
        /// The compositor has processed an `offer` and reported all changes before it.
        virtual void offerTaken() = 0;

    protected:
        ~Listener() = default;
    };

    DataControlDevice() = default;
    virtual ~DataControlDevice() = default;
    Q_DISABLE_COPY_MOVE(DataControlDevice)

    /// Null when the compositor has no data control or no seat. `ownType` is a type that marks the
    /// offers of this program. All must outlive the device.
    [[nodiscard]] static std::unique_ptr<DataControlDevice>
    bind(WaylandConnection& connection, const QByteArray& ownType, Listener& listener);

    /// Makes this program the owner of the selection. `ownType` is added to the types.
    virtual void offer(const QByteArrayList& types) = 0;
};

} // namespace driftbox
