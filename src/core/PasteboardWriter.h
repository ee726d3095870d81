#pragma once

#include "platform/Pasteboard.h"

#include <QtCore/QObject>

namespace driftbox {

/// Through this the program itself, not the user's copying, puts something on the pasteboard. Who
/// watches the pasteboard for what the user copies is told of each such write. Main thread only.
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
    /// What is on the pasteboard now comes from this program.
    void written();

private:
    Pasteboard& m_pasteboard;
};

} // namespace driftbox
