#pragma once

#include "platform/UserDefaults.h"

#include <QtCore/QHash>

namespace driftbox {

/// In-memory user defaults that count writes.
class FakeUserDefaults final : public UserDefaults
{
public:
    [[nodiscard]] std::optional<DefaultsValue> value(const QString& key) const override
    {
        const auto found = values.constFind(key);
        return found == values.cend() ? std::nullopt : std::optional(*found);
    }
    void setValue(const QString& key, const DefaultsValue& value) override
    {
        values.insert(key, value);
        ++writes;
    }

    QHash<QString, DefaultsValue> values;
    int writes = 0;
};

} // namespace driftbox
