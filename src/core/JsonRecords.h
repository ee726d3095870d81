#pragma once

#include "core/JsonFields.h"
#include "platform/Expected.h"

#include <functional>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Manifests: one JSON array of objects.
namespace driftbox::JsonRecords {

/// Calls `read` with the members of each object in turn. Fails when something is wrong with the
/// text, or at the first object that `read` finds a fault in, where reading stops.
Expected<void> read(const QByteArray& text, const std::function<void(JsonFields&)>& read);

/// The array of these objects, which are JSON text already.
[[nodiscard]] QByteArray join(const std::vector<QByteArray>& objects);

} // namespace driftbox::JsonRecords
