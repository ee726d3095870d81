#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace driftbox {

/// A private session bus with private folders for configuration, data and run-time files. The
/// environment points to all of them from construction on; the bus and what it started end with it.
class SessionBus
{
public:
    enum class Services {
        installed, ///< the services of this machine are started on demand
        none,
    };

    /// Stops the test program when the bus does not come up.
    explicit SessionBus(Services services = Services::installed);
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    [[nodiscard]] QString address() const { return m_address; }

private:
    void makeFolders();

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
};

} // namespace driftbox
