#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace driftbox {

class ReadingLimit;

/// The text in `picture`, which must be opaque (Format_RGB32); empty if there is none or the limit
/// is reached.
///
/// A picture may contain several of the `languages`. Each line is read in the one with the highest
/// confidence; among equals, in the first. Works on its own threads and blocks until they are done.
[[nodiscard]] QString readPage(const QImage& picture, const QStringList& languages,
                               const ReadingLimit& limit);

} // namespace driftbox
