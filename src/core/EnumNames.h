#pragma once

#include <array>
#include <optional>
#include <utility>

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace driftbox {

/// The names under which an enumeration's values are stored.
template <typename Enum, std::size_t count>
struct EnumNames
{
    std::array<std::pair<Enum, QStringView>, count> pairs;

    [[nodiscard]] QString name(Enum wanted) const
    {
        for (const auto& [value, name] : pairs) {
            if (value == wanted)
                return name.toString();
        }
        Q_UNREACHABLE();
    }

    /// Exact match; nullopt for an unknown name.
    [[nodiscard]] constexpr std::optional<Enum> value(QStringView wanted) const
    {
        for (const auto& [value, name] : pairs) {
            if (name == wanted)
                return value;
        }
        return std::nullopt;
    }
};

} // namespace driftbox
