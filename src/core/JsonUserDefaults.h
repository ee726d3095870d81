#pragma once

#include "core/Json.h"
#include "platform/UserDefaults.h"

namespace driftbox {

class FileSystem;

/// User defaults kept in one JSON object on disk. Read once; members that the program does not know
/// stay as they are. A file that is no JSON object counts as empty, is logged, and is copied aside
/// before it is first overwritten.
class JsonUserDefaults final : public UserDefaults
{
public:
    /// `folder` is created with the first write. `fileSystem` must outlive this.
    JsonUserDefaults(FileSystem& fileSystem, const QString& folder);

    [[nodiscard]] std::optional<DefaultsValue> value(const QString& key) const override;
    void setValue(const QString& key, const DefaultsValue& value) override;

private:
    void load();

    FileSystem& m_fileSystem;
    QString m_folder;
    QString m_path;
    Json::Value m_object;
    std::optional<QByteArray> m_unreadable; ///< what the file held when it could not be understood
};

} // namespace driftbox
