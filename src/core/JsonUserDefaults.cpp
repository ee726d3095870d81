#include "core/JsonUserDefaults.h"

#include "platform/FileSystem.h"

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(jsonUserDefaultsLog, "JsonUserDefaults")

struct ToJson
{
    Json::Value operator()(bool value) const { return Json::Value(json_boolean(value)); }
    Json::Value operator()(qint64 value) const { return Json::Value(json_integer(value)); }
    Json::Value operator()(double value) const { return Json::Value(json_real(value)); }
    Json::Value operator()(const QString& value) const { return Json::string(value); }
};

} // namespace

JsonUserDefaults::JsonUserDefaults(FileSystem& fileSystem, const QString& folder)
    : m_fileSystem(fileSystem)
    , m_folder(folder)
    , m_file(fileSystem, folder + u"/defaults.json"_s)
    , m_object(json_object())
{
    load();
}

void JsonUserDefaults::load()
{
    const auto text = m_file.read();
    if (!text)
        return;

    auto parsed = Json::parse(*text, Json::Numbers::asWritten);
    if (parsed && json_is_object(parsed->get())) {
        m_object = std::move(*parsed);
        return;
    }
    qCCritical(jsonUserDefaultsLog).noquote() << u"Settings unreadable, using defaults: %1"_s.arg(
        parsed ? u"not an object"_s : parsed.error().message);
    m_file.markCorrupt(*text);
}

std::optional<DefaultsValue> JsonUserDefaults::value(const QString& key) const
{
    const json_t* value = json_object_get(m_object.get(), key.toUtf8().constData());
    if (json_is_boolean(value))
        return json_is_true(value);
    if (json_is_integer(value))
        return static_cast<qint64>(json_integer_value(value));
    if (json_is_real(value))
        return json_real_value(value);
    return Json::toString(value);
}

void JsonUserDefaults::setValue(const QString& key, const DefaultsValue& value)
{
    json_object_set_new(m_object.get(), key.toUtf8().constData(),
                        std::visit(ToJson(), value).release());

    m_fileSystem.createFolder(m_folder);
    if (const auto written = m_file.write(Json::compactText(*m_object)); !written)
        qCCritical(jsonUserDefaultsLog).noquote()
            << u"Failed to store settings: %1"_s.arg(written.error().message);
}

} // namespace driftbox
