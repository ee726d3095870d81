#include "core/AppConfig.h"

#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace driftbox::AppConfig {

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
