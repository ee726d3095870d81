#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace driftbox {

class AppCoordinator;
class InstanceLink;

/// Forwards the program's launch and the desktop's requests to the coordinator. Main thread only.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the delegate.
    AppDelegate(AppCoordinator& coordinator, InstanceLink& link, QObject* parent = nullptr);

    /// `documents` are those passed on the command line.
    void applicationDidFinishLaunching(const QList<QUrl>& documents);

private:
    void handleOpenDocuments(const QList<QUrl>& documents);

    AppCoordinator& m_coordinator;
    InstanceLink& m_link;
};

} // namespace driftbox
