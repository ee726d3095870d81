#pragma once

#include "platform/Pasteboard.h"

#include <QtCore/QObject>

namespace driftbox {

/// Writes to the pasteboard on behalf of the program itself. `written` lets the clipboard monitor
/// tell these writes from what the user copies. Main thread only.
class PasteboardWriter : public QObject
{
    Q_OBJECT

public:
    /// `pasteboard` must outlive the writer.
    explicit PasteboardWriter(Pasteboard& pasteboard, QObject* parent = nullptr)
        : QObject(parent)
        , m_pasteboard(pasteboard)
    {
    }

    /// Replaces the whole content of the pasteboard; empty content clears it.
    void write(const PasteboardContent& content)
    {
        m_pasteboard.write(content);
        Q_EMIT written();
    }

Q_SIGNALS:
    /// The pasteboard's current content comes from this program.
    void written();

private:
    Pasteboard& m_pasteboard;
};

} // namespace driftbox
