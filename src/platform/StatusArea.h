#pragma once

#include <QtCore/QObject>

namespace driftbox {

/// A place of the desktop that shows symbols of resident programs. It may appear late, go away and
/// come back. Main thread only.
class StatusArea : public QObject
{
    Q_OBJECT

public:
    /// Begins to look; until then nothing is known, and looking costs nothing. Calling it again
    /// does nothing.
    virtual void watch() = 0;

    /// Whether a symbol put there now is shown. False until it is known.
    [[nodiscard]] bool isAvailable() const { return m_isAvailable; }

Q_SIGNALS:
    void availableChanged(bool available);

protected:
    using QObject::QObject;

    void setAvailable(bool available)
    {
        if (m_isAvailable == available)
            return;
        m_isAvailable = available;
        Q_EMIT availableChanged(available);
    }

private:
    bool m_isAvailable = false;
};

} // namespace driftbox
