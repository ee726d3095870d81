#pragma once

#include <optional>

#include <QtCore/QString>

namespace driftbox {

/// The file name of an image record within its store's images folder: `named` if it is a plain file
/// name, else `id`, the record's canonical id, followed by ".png". The result never leaves the
/// folder, whatever a foreign manifest contains.
[[nodiscard]] QString imageFileName(const std::optional<QString>& named, const QString& id);

} // namespace driftbox
