#pragma once

#include <QtCore/QObject>

namespace driftbox {

/// The area of the desktop that shows the icons of resident programs. It may appear late, disappear
/// and come back. Main thread only.
class StatusArea : public QObject
{
    Q_OBJECT

public:
    /// Starts watching for the area; before this call the availability is unknown. Calling it again
    /// has no effect.
    virtual void watch() = 0;

    /// Whether an icon added now would be shown. False until it is known.
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
