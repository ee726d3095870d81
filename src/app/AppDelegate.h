#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace driftbox {

class AppCoordinator;
class InstanceLink;

/// Turns what happens to the program, its launch and what the desktop asks of it, into calls of the
/// coordinator. Main thread only.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the delegate.
    AppDelegate(AppCoordinator& coordinator, InstanceLink& link, QObject* parent = nullptr);

    /// `documents` are those that the program was started with.
    void applicationDidFinishLaunching(const QList<QUrl>& documents);

private:
    void handleOpenDocuments(const QList<QUrl>& documents);

    AppCoordinator& m_coordinator;
    InstanceLink& m_link;
};

} // namespace driftbox
