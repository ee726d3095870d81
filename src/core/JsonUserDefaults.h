#pragma once

#include "core/Json.h"
#include "core/ManifestFile.h"
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
    ManifestFile m_file;
    Json::Value m_object;
};

} // namespace driftbox
