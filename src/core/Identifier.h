#pragma once

#include <optional>

#include <QtCore/QHashFunctions>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <QtCore/QUuid>

namespace driftbox {

/// A UUID that names one kind of thing only.
template <typename Tag>
class Identifier
{
public:
    [[nodiscard]] static Identifier random() { return Identifier(QUuid::createUuid()); }

    /// From canonical text (8-4-4-4-12 hexadecimal digits of either case); none for anything else.
    [[nodiscard]] static std::optional<Identifier> fromText(QStringView text)
    {
        constexpr qsizetype canonicalLength = 36;
        if (text.size() != canonicalLength)
            return std::nullopt;
        const QUuid uuid = QUuid::fromString(text);
        const bool parsed =
            uuid.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0;
        return parsed ? std::optional(Identifier(uuid)) : std::nullopt;
    }

    /// Canonical text in upper case, as the manifests and the image files have it.
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
