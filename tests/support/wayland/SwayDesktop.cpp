#include "support/wayland/SwayDesktop.h"

#include <csignal>

#include <unistd.h>

#include <QtCore/QFile>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int compositorStartTimeoutMs = 60'000;
constexpr uid_t nobody = 65534; // sway refuses to run as root

} // namespace

SwayDesktop::SwayDesktop()
{
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
    qunsetenv("WAYLAND_DISPLAY");
    writeConfiguration();
    start();
    awaitDisplay();
}

SwayDesktop::~SwayDesktop()
{
    crash();
}

void SwayDesktop::crash()
{
    m_process.kill();
    m_process.waitForFinished();
}

void SwayDesktop::writeConfiguration()
{
    QFile file(m_folder.filePath(u"config"_s));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("The compositor's configuration cannot be written");
    file.write("xwayland disable\n"
               "exec echo \"$WAYLAND_DISPLAY\"\n");
    file.close();
    const QByteArray folder = QFile::encodeName(m_folder.path());
    if (geteuid() == 0 && chown(folder.constData(), nobody, nobody) != 0)
        qFatal("The compositor's folder cannot be handed over");
    file.setPermissions(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
}

void SwayDesktop::start()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"WLR_BACKENDS"_s, u"headless"_s);
    environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    environment.insert(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
    environment.remove(u"DISPLAY"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    QStringList command{u"sway"_s, u"--config"_s, m_folder.filePath(u"config"_s)};
    if (geteuid() == 0) {
        command = QStringList{u"setpriv"_s,
                              u"--reuid"_s,
                              QString::number(nobody),
                              u"--regid"_s,
                              QString::number(nobody),
                              u"--clear-groups"_s} +
                  command;
    }
    m_process.start(command.front(), command.mid(1));
}

void SwayDesktop::awaitDisplay()
{
    QByteArray display;
    while (!display.endsWith('\n')) {
        if (!m_process.waitForReadyRead(compositorStartTimeoutMs))
            qFatal("The compositor does not start");
        display += m_process.readAllStandardOutput();
    }
    qputenv("WAYLAND_DISPLAY", display.trimmed());
}

} // namespace driftbox
