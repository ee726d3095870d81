#pragma once

#include "settings/SettingsServices.h"

#include <QtCore/QObject>

namespace driftbox {

/// Model of the clipboard settings page. Changes take effect at once. Main thread only.
class ClipboardSettings : public QObject
{
    Q_OBJECT

public:
    static constexpr int minCapacity = 5;
    static constexpr int maxCapacity = 100;
    static constexpr int capacityStep = 5;

    /// The references in `services` must outlive this.
    explicit ClipboardSettings(const SettingsServices& services, QObject* parent = nullptr);

    /// The stored value, which may be outside the offered range.
    [[nodiscard]] qint64 capacity() const;
    [[nodiscard]] bool canIncrement() const { return capacity() < maxCapacity; }
    [[nodiscard]] bool canDecrement() const { return capacity() > minCapacity; }
    /// Changes the capacity by that many steps, limited to the range; never moves against the
    /// requested direction.
    void step(int steps);

    [[nodiscard]] bool canClear() const;
    void clearUnpinned() const;

Q_SIGNALS:
    void capacityChanged();
    void canClearChanged();

private:
    SettingsServices m_services;
};

} // namespace driftbox
