#include "platform/desktop/XdgAutostart.h"

#include "platform/FileSystem.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

QString program()
{
    const QString installed = QStandardPaths::findExecutable(u"driftbox"_s);
    return installed.isEmpty() ? QCoreApplication::applicationFilePath() : installed;
}

QByteArray desktopEntry()
{
    return u"[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Drift Box\n"
           "Icon=app.driftbox\n"
           "Terminal=false\n"
           "Exec=%1\n"_s.arg(quotedForExec(program()))
               .toUtf8();
}

} // namespace

QString quotedForExec(const QString& argument)
{
    QString quoted;
    for (const QChar character : argument) {
        // Once for the quotes of Exec, and every backslash again for the entry's strings.
        if (character == u'\\')
            quoted += u"\\\\\\\\"_s;
        else if (character == u'"' || character == u'`' || character == u'$')
            quoted += u"\\\\"_s + character;
        else if (character == u'%')
            quoted += u"%%"_s;
        else
            quoted += character;
    }
    return u'"' + quoted + u'"';
}

XdgAutostart::XdgAutostart(FileSystem& fileSystem, const QString& autostartFolder)
    : m_fileSystem(fileSystem)
    , m_folder(autostartFolder)
    , m_path(autostartFolder + u"/app.driftbox.desktop"_s)
{
}

std::optional<QString> XdgAutostart::registerItem()
{
    m_fileSystem.createFolder(m_folder);
    return m_fileSystem.writeAtomically(m_path, desktopEntry());
}

std::optional<QString> XdgAutostart::unregisterItem()
{
    if (m_fileSystem.remove(m_path) || !m_fileSystem.read(m_path))
        return std::nullopt;
    return u"%1 cannot be removed"_s.arg(m_path);
}

} // namespace driftbox
