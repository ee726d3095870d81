#include "core/Log.h"

#include <algorithm>
#include <cstdio>

#include <sys/stat.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace driftbox::Log {

namespace {

struct Level
{
    const char* name;
    int priority;
};

Level levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return {"debug", LOG_DEBUG};
    case QtInfoMsg:
        return {"info", LOG_INFO};
    case QtWarningMsg:
        return {"notice", LOG_NOTICE};
    case QtCriticalMsg:
        return {"error", LOG_ERR};
    case QtFatalMsg:
        return {"fatal", LOG_CRIT};
    }
    Q_UNREACHABLE();
}

// systemd identifies the journal's stream by device and inode in JOURNAL_STREAM. A sandbox may hide
// the journal's socket; messages sent to a hidden socket are lost without an error.
bool isStandardErrorJournal()
{
    if (access("/run/systemd/journal/socket", W_OK) != 0)
        return false;
    struct stat status = {};
    if (fstat(fileno(stderr), &status) != 0)
        return false;
    const QByteArray stream = QByteArray::number(static_cast<qulonglong>(status.st_dev)) + ':' +
                              QByteArray::number(static_cast<qulonglong>(status.st_ino));
    return qgetenv("JOURNAL_STREAM") == stream;
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

// A message may contain, say, a file name with line breaks or terminal escape sequences.
QString withoutControls(QString message)
{
    std::ranges::replace_if(message, &isControl, QChar(u' '));
    return message;
}

void toStandardError(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const QString time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
    std::fprintf(stderr, "%s %s %s:%s %s\n", qUtf8Printable(time), levelOf(type).name, subsystem,
                 context.category, qUtf8Printable(withoutControls(message)));
}

void toJournal(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    sd_journal_send("MESSAGE=%s", qUtf8Printable(message), "PRIORITY=%d", levelOf(type).priority,
                    "SUBSYSTEM=%s", subsystem, "CATEGORY=%s", context.category, nullptr);
}

} // namespace

void install()
{
    qInstallMessageHandler(isStandardErrorJournal() ? toJournal : toStandardError);
}

} // namespace driftbox::Log
