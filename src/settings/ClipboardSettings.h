#pragma once

#include "settings/SettingsServices.h"

#include <QtCore/QObject>

namespace driftbox {

/// What the page of the clipboard settings shows and does. Changes act at once. Main thread only.
class ClipboardSettings : public QObject
{
    Q_OBJECT

public:
    static constexpr int minCapacity = 5;
    static constexpr int maxCapacity = 100;
    static constexpr int capacityStep = 5;

    /// What `services` refers to must outlive this.
    explicit ClipboardSettings(const SettingsServices& services, QObject* parent = nullptr);

    /// As it is stored, whatever the range that is offered.
    [[nodiscard]] qint64 capacity() const;
    [[nodiscard]] bool canIncrement() const { return capacity() < maxCapacity; }
    [[nodiscard]] bool canDecrement() const { return capacity() > minCapacity; }
    /// Goes that many steps, as far as the range allows; never against their direction.
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
