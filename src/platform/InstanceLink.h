#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace driftbox {

/// Ensures that the program runs once per session. Main thread only.
class InstanceLink : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        first,      ///< this process is the session's instance
        handedOver, ///< another instance is running and has received the documents
    };

    /// Makes this process the session's instance, or hands `documents` over to the one that is
    /// already running; without documents, asks it to show itself. Blocks for at most a few hundred
    /// milliseconds.
    [[nodiscard]] virtual Claim claim(const QList<QUrl>& documents) = 0;

Q_SIGNALS:
    /// The user has started the program again, or chosen it in the desktop's menu.
    void activated();
    void documentsOpened(const QList<QUrl>& documents);

protected:
    using QObject::QObject;
};

} // namespace driftbox
