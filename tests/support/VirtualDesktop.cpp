#include "support/VirtualDesktop.h"

#include <QtCore/QDeadlineTimer>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int startTimeoutMs = 20'000;

void stop(QProcess& process)
{
    process.terminate();
    if (!process.waitForFinished(2'000)) {
        process.kill();
        process.waitForFinished();
    }
}

} // namespace

VirtualDesktop::VirtualDesktop(const QString& screen)
{
    startServer(screen);
    startWindowManager();
}

VirtualDesktop::~VirtualDesktop()
{
    stop(m_windowManager);
    stop(m_server);
}

void VirtualDesktop::startServer(const QString& screen)
{
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, screen,
                               u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    QByteArray number;
    while (!number.endsWith('\n')) {
        if (!m_server.waitForReadyRead(startTimeoutMs))
            qFatal("The X server does not start");
        number += m_server.readAllStandardOutput();
    }
    qputenv("DISPLAY", ':' + number.trimmed());
}

void VirtualDesktop::startWindowManager()
{
    m_windowManager.setProcessChannelMode(QProcess::MergedChannels);
    m_windowManager.setStandardOutputFile(QProcess::nullDevice());
    m_windowManager.start(u"openbox"_s, {u"--sm-disable"_s});
    if (!m_windowManager.waitForStarted(startTimeoutMs))
        qFatal("The window manager does not start");

    // It manages the screen once its check window is announced on the root window.
    const QDeadlineTimer deadline(startTimeoutMs);
    QByteArray answer;
    while (!answer.contains("window id")) {
        if (deadline.hasExpired())
            qFatal("The window manager does not manage the screen");
        QProcess query;
        query.start(u"xprop"_s, {u"-root"_s, u"_NET_SUPPORTING_WM_CHECK"_s});
        query.waitForFinished(startTimeoutMs);
        answer = query.readAllStandardOutput();
    }
}

} // namespace driftbox
