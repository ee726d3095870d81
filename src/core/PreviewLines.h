#pragma once

#include <QtCore/QString>

namespace driftbox {

/// What two lines can show of a text: the beginnings of its first two lines that are not blank.
struct PreviewLines
{
    QString first;
    QString second;
    bool hasMore = false; ///< there is something behind the second line

    bool operator==(const PreviewLines&) const = default;
};

/// Looks only at as much of `text` as two lines can hold. Characters that control a device or turn
/// the direction of others are left out; tabs stay.
[[nodiscard]] PreviewLines previewLines(const QString& text);

} // namespace driftbox
