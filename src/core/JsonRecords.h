#pragma once

#include "core/JsonFields.h"
#include "platform/Expected.h"

#include <functional>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Manifests: a JSON array of objects.
namespace driftbox::JsonRecords {

/// Calls `read` with the members of each object in turn. Stops at the first error, in the text or
/// in an object's fields.
Expected<void> read(const QByteArray& text, const std::function<void(JsonFields&)>& read);

/// The array of objects that are serialized already.
[[nodiscard]] QByteArray join(const std::vector<QByteArray>& objects);

} // namespace driftbox::JsonRecords
