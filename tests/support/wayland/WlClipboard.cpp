#include "support/wayland/WlClipboard.h"

using namespace Qt::StringLiterals;

namespace driftbox::WlClipboard {

namespace {

constexpr int wlClipboardTimeoutMs = 20'000;

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    process.waitForFinished(wlClipboardTimeoutMs);
    return process.readAllStandardOutput();
}

} // namespace

Copy::Copy(const QByteArray& content, const QStringList& options)
{
    m_process.start(u"wl-copy"_s, QStringList{u"--foreground"_s} + options);
    m_process.write(content);
    m_process.closeWriteChannel();
    if (!m_process.waitForStarted(wlClipboardTimeoutMs))
        qFatal("wl-copy does not start");
}

Copy::~Copy()
{
    m_process.kill();
    m_process.waitForFinished();
}

QByteArray pasted(const QString& type)
{
    return outputOf(u"wl-paste"_s, {u"--no-newline"_s, u"--type"_s, type});
}

QByteArrayList types()
{
    return outputOf(u"wl-paste"_s, {u"--list-types"_s}).trimmed().split('\n');
}

void clear()
{
    outputOf(u"wl-copy"_s, {u"--clear"_s});
}

} // namespace driftbox::WlClipboard
