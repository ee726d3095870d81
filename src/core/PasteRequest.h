#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

namespace driftbox {

/// The in-process notification that the chosen content is on the pasteboard: hide the panel and
/// paste it where the user was typing. It has no sender and no payload. Main thread only; delivery
/// is immediate.
class PasteRequest : public QObject
{
    Q_OBJECT

public:
    /// The notification's name, which is the object's too.
    static inline const QString magicPanelPaste = QStringLiteral("app.driftbox.panelPaste");

    explicit PasteRequest(QObject* parent = nullptr)
        : QObject(parent)
    {
        setObjectName(magicPanelPaste);
    }

    void post() { Q_EMIT posted(); }

Q_SIGNALS:
    void posted();
};

} // namespace driftbox
