#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace driftbox {

class ReadingLimit;

/// The text in `picture`, which is opaque and of the format RGB32; empty when there is none or the
/// limit is reached.
///
/// A picture may be written in several of the `languages`. Each line is read in the one whose
/// reading is the surest; of equally sure ones in the first. Works on threads of its own
/// while the caller waits.
[[nodiscard]] QString readPage(const QImage& picture, const QStringList& languages,
                               const ReadingLimit& limit);

} // namespace driftbox
