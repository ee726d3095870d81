#pragma once

#include "core/Json.h"
#include "core/ManifestFile.h"
#include "platform/UserDefaults.h"

namespace driftbox {

class FileSystem;

/// User defaults stored as one JSON object on disk. Read once, at construction; unknown members are
/// preserved. A file that is not a JSON object is logged, treated as empty, and backed up before it
/// is first overwritten. Main thread only.
class JsonUserDefaults final : public UserDefaults
{
public:
    /// `folder` is created on the first write. `fileSystem` must outlive this.
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
