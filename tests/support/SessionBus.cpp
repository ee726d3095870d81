#include "support/SessionBus.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int busTimeoutMs = 20'000;

constexpr auto configuration = R"(<!DOCTYPE busconfig PUBLIC
    "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
    "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  %1
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

SessionBus::SessionBus(Services services)
{
    makeFolders();
    QFile file(m_folder.filePath(u"bus.conf"_s));
    const bool isOpen = file.open(QIODevice::WriteOnly);
    const auto directories =
        services == Services::installed ? u"<standard_session_servicedirs/>"_s : QString();
    file.write(QString::fromUtf8(configuration).arg(directories).toUtf8());
    file.close();

    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(u"dbus-daemon"_s, {u"--config-file=%1"_s.arg(file.fileName()), u"--nofork"_s,
                                      u"--nopidfile"_s, u"--print-address=1"_s});
    QByteArray line;
    while (!line.endsWith('\n')) {
        if (!isOpen || !m_daemon.waitForReadyRead(busTimeoutMs))
            qFatal("The session bus does not start");
        line += m_daemon.readAllStandardOutput();
    }
    m_address = QString::fromUtf8(line.trimmed());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toUtf8());
}

SessionBus::~SessionBus()
{
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(busTimeoutMs))
        m_daemon.kill();
}

void SessionBus::makeFolders()
{
    const std::pair<const char*, QString> folders[] = {
        {"XDG_RUNTIME_DIR", u"run"_s},  {"XDG_CONFIG_HOME", u"config"_s},
        {"XDG_DATA_HOME", u"data"_s},   {"XDG_CACHE_HOME", u"cache"_s},
        {"XDG_STATE_HOME", u"state"_s},
    };
    for (const auto& [variable, name] : folders) {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(variable, path.toUtf8());
    }
    // Neither the machine's settings nor a settings service.
    qputenv("GSETTINGS_BACKEND", "memory");
    qunsetenv("AT_SPI_BUS_ADDRESS");
}

} // namespace driftbox
