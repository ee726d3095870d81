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

// Escapes a string value of a desktop entry.
QString escaped(const QString& text)
{
    QString escaped;
    for (const QChar character : text) {
        if (character == u'\\')
            escaped += u"\\\\"_s;
        else if (character == u'\n')
            escaped += u"\\n"_s;
        else if (character == u'\r')
            escaped += u"\\r"_s;
        else if (character == u'\t')
            escaped += u"\\t"_s;
        else
            escaped += character;
    }
    return escaped;
}

QByteArray desktopEntry(const QString& program)
{
    return u"[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Drift Box\n"
           "Icon=app.driftbox\n"
           "Terminal=false\n"
           "TryExec=%1\n"
           "Exec=%2\n"_s.arg(escaped(program), quotedForExec(program))
               .toUtf8();
}

} // namespace

QString quotedForExec(const QString& argument)
{
    QString quoted;
    for (const QChar character : argument) {
        if (u"\\\"`$"_s.contains(character))
            quoted += u'\\';
        else if (character == u'%')
            quoted += u'%';
        quoted += character;
    }
    return escaped(u'"' + quoted + u'"');
}

XdgAutostart::XdgAutostart(FileSystem& fileSystem, const QString& autostartFolder)
    : m_fileSystem(fileSystem)
    , m_folder(autostartFolder)
    , m_path(autostartFolder + u"/app.driftbox.desktop"_s)
{
}

Expected<void> XdgAutostart::registerItem()
{
    m_fileSystem.createFolder(m_folder);
    return m_fileSystem.writeAtomically(m_path, desktopEntry(program()));
}

Expected<void> XdgAutostart::unregisterItem()
{
    if (m_fileSystem.remove(m_path) || !m_fileSystem.read(m_path))
        return {};
    return Error{u"%1: cannot be removed"_s.arg(m_path)};
}

} // namespace driftbox
