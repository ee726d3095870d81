#pragma once

#include "platform/FileDescriptor.h"
#include "platform/wayland/clipboard/DataControlDevice.h"
#include "platform/wayland/connection/WaylandConnection.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace driftbox {

/// Another program that copies, and answers for its content as a test tells it to.
class ScriptedSource : private DataControlDevice::Listener
{
public:
    /// What to do with the pipe of a program that pastes. It may be kept open in `pipes`.
    using Answer = std::function<void(FileDescriptor pipe)>;

    ScriptedSource();
    ~ScriptedSource();
    Q_DISABLE_COPY_MOVE(ScriptedSource)

    /// Writes the bytes and closes the pipe; they have to fit into it.
    [[nodiscard]] static Answer bytes(const QByteArray& content);
    /// Keeps the pipe open and writes nothing.
    [[nodiscard]] Answer silence();

    /// Becomes the owner of the clipboard with these types.
    void copy(const std::map<QByteArray, Answer>& answers);

    [[nodiscard]] bool hasBeenAskedFor(const QByteArray& type) const;

    std::vector<FileDescriptor> pipes; ///< kept open

private:
    void selectionChanged(std::unique_ptr<DataOffer> offer) override;
    void primarySelectionChanged(std::unique_ptr<DataOffer> offer) override;
    void dataRequested(const QByteArray& type, FileDescriptor pipe) override;
    void offerTaken() override;

    const QByteArray m_ownType = "application/x-scripted-source";
    std::unique_ptr<WaylandConnection> m_connection = WaylandConnection::open();
    std::unique_ptr<DataControlDevice> m_device =
        DataControlDevice::bind(*m_connection, m_ownType, *this);
    std::map<QByteArray, Answer> m_answers;
    QByteArrayList m_asked;
};

} // namespace driftbox
