#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace driftbox {

/// Keeps the program to one process a session. Main thread only.
class InstanceLink : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        first,      ///< this process is the program now
        handedOver, ///< another one is, and has taken the documents
    };

    /// Makes this process the program of the session, or hands `documents` to the one that is; with
    /// none, asks it to show itself. Takes at most a few hundred milliseconds.
    [[nodiscard]] virtual Claim claim(const QList<QUrl>& documents) = 0;

Q_SIGNALS:
    /// The user started the program once more, or chose it in the desktop's menu.
    void activated();
    void documentsOpened(const QList<QUrl>& documents);

protected:
    using QObject::QObject;
};

} // namespace driftbox
