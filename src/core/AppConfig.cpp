#include "core/AppConfig.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace driftbox::AppConfig {

namespace {

// Relative to the executable, so that an installation can be moved.
QString relativeToExecutable(const QString& path)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' + path);
}

} // namespace

QString storage::defaultRootURL()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (folder.isEmpty())
        qFatal("The user has no data folder");
    return folder + u"/Driftbox"_s;
}

QString settingsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/driftbox"_s;
}

QString autostartFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/autostart"_s;
}

QString resourcesFolder()
{
    return relativeToExecutable(QStringLiteral(DRIFTBOX_RESOURCES));
}

QString modulesFolder()
{
    return relativeToExecutable(QStringLiteral(DRIFTBOX_MODULES));
}

QUrl feedbackURL()
{
    return QUrl(QStringLiteral(DRIFTBOX_FEEDBACK_URL));
}

QString version()
{
    return QStringLiteral(DRIFTBOX_VERSION);
}

QString buildNumber()
{
    return QStringLiteral(DRIFTBOX_BUILD_NUMBER);
}

} // namespace driftbox::AppConfig
