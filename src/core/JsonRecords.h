#pragma once

#include "core/JsonFields.h"

#include <functional>
#include <vector>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Manifests: one JSON array of objects.
namespace driftbox::JsonRecords {

/// Calls `read` with the members of each object in turn. Returns what is wrong with the text or
/// with the first object that `read` found a fault in, where reading stopped; empty when all is
/// good.
[[nodiscard]] QString read(const QByteArray& text, const std::function<void(JsonFields&)>& read);

/// The array of these objects, which are JSON text already.
[[nodiscard]] QByteArray join(const std::vector<QByteArray>& objects);

} // namespace driftbox::JsonRecords
