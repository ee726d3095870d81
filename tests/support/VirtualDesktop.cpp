#include "support/VirtualDesktop.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int serverStartTimeoutMs = 60'000;

} // namespace

VirtualDesktop::VirtualDesktop(const QString& screen)
{
    startServer(screen);
    setWindowManager(
        qEnvironmentVariable("DRIFTBOX_TEST_WINDOW_MANAGER", QStringLiteral("openbox")));
}

VirtualDesktop::~VirtualDesktop()
{
    m_windowManager.reset();
    m_server.terminate();
    if (!m_server.waitForFinished(2'000)) {
        m_server.kill();
        m_server.waitForFinished();
    }
}

void VirtualDesktop::setWindowManager(const QString& name)
{
    m_windowManager.reset();
    if (!name.isEmpty())
        m_windowManager = std::make_unique<WindowManager>(name);
}

void VirtualDesktop::crashWindowManager()
{
    m_windowManager->crash();
    m_windowManager.reset();
}

void VirtualDesktop::startServer(const QString& screen)
{
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, screen,
                               u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    QByteArray number;
    while (!number.endsWith('\n')) {
        if (!m_server.waitForReadyRead(serverStartTimeoutMs))
            qFatal("The X server does not start");
        number += m_server.readAllStandardOutput();
    }
    qputenv("DISPLAY", ':' + number.trimmed());
}

} // namespace driftbox
