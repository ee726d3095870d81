#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace driftbox {

/// A private session bus with private folders for configuration, data and run-time files. The
/// environment points to them once this is constructed. The bus ends with this object.
class SessionBus
{
public:
    enum class Services {
        installed, ///< the services of this machine are started on demand
        none,
    };

    /// Aborts the test program if the bus does not start.
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
