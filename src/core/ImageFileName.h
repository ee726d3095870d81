#pragma once

#include <optional>

#include <QtCore/QString>

namespace driftbox {

/// The name, in its store's images folder, of the file that holds the bytes of an image record:
/// `named` when it is the name of a file in that folder, else `id`, the record's canonical id,
/// followed by ".png". Whatever a foreign manifest names, the result never leaves the folder.
[[nodiscard]] QString imageFileName(const std::optional<QString>& named, const QString& id);

} // namespace driftbox
