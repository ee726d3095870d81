#pragma once

#include <optional>

#include <QtCore/QHashFunctions>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <QtCore/QUuid>

namespace driftbox {

/// A UUID typed by what it identifies, so that ids of different kinds cannot be mixed up.
template <typename Tag>
class Identifier
{
public:
    [[nodiscard]] static Identifier random() { return Identifier(QUuid::createUuid()); }

    /// Parses canonical text (8-4-4-4-12 hexadecimal digits in either case); nullopt otherwise.
    [[nodiscard]] static std::optional<Identifier> fromText(QStringView text)
    {
        constexpr qsizetype canonicalLength = 36;
        if (text.size() != canonicalLength)
            return std::nullopt;
        const QUuid uuid = QUuid::fromString(text);
        const bool isCanonical =
            uuid.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0;
        return isCanonical ? std::optional(Identifier(uuid)) : std::nullopt;
    }

    /// Canonical text in upper case, as used in manifests and image file names.
    [[nodiscard]] QString text() const { return m_uuid.toString(QUuid::WithoutBraces).toUpper(); }

    bool operator==(const Identifier&) const = default;
    friend size_t qHash(const Identifier& id, size_t seed = 0) { return qHash(id.m_uuid, seed); }

private:
    explicit Identifier(const QUuid& uuid)
        : m_uuid(uuid)
    {
    }

    QUuid m_uuid;
};

} // namespace driftbox
