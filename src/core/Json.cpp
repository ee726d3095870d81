#include "core/Json.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace driftbox::Json {

namespace {

// Omits the excerpt that the parser quotes: it may contain private data.
QString errorMessage(const json_error_t& error)
{
    const QString reason = QString::fromUtf8(error.text).section(u" near '"_s, 0, 0);
    return u"%1 at line %2, column %3"_s.arg(reason).arg(error.line).arg(error.column);
}

} // namespace

Expected<Value> parse(const QByteArray& text, Numbers numbers)
{
    json_error_t error{};
    const size_t reals = numbers == Numbers::asReals ? JSON_DECODE_INT_AS_REAL : 0;
    Value value(json_loadb(text.constData(), static_cast<size_t>(text.size()),
                           JSON_ALLOW_NUL | reals, &error));
    if (!value)
        return Error{errorMessage(error)};
    return value;
}

QByteArray compactText(const json_t& value)
{
    const std::unique_ptr<char, decltype(&std::free)> text(
        json_dumps(&value, JSON_COMPACT | JSON_ESCAPE_SLASH), &std::free);
    return QByteArray(text.get());
}

Value string(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return Value(json_stringn(utf8.constData(), static_cast<size_t>(utf8.size())));
}

Value number(Instant instant)
{
    return Value(json_real(instant.referenceSeconds()));
}

std::optional<QString> toString(const json_t* value)
{
    if (!json_is_string(value))
        return std::nullopt;
    return QString::fromUtf8(json_string_value(value),
                             static_cast<qsizetype>(json_string_length(value)));
}

std::optional<bool> toBool(const json_t* value)
{
    return json_is_boolean(value) ? std::optional(json_is_true(value)) : std::nullopt;
}

std::optional<double> toDouble(const json_t* value)
{
    return json_is_number(value) ? std::optional(json_number_value(value)) : std::nullopt;
}

std::optional<Instant> toInstant(const json_t* value)
{
    const auto seconds = toDouble(value);
    return seconds ? std::optional(Instant::fromReferenceSeconds(*seconds)) : std::nullopt;
}

std::optional<QByteArray> toBytes(const json_t* value)
{
    const auto text = toString(value);
    if (!text || text->size() % 4 != 0)
        return std::nullopt;
    auto decoded =
        QByteArray::fromBase64Encoding(text->toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(std::move(*decoded)) : std::nullopt;
}

} // namespace driftbox::Json
