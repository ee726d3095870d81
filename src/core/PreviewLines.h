#pragma once

#include <QtCore/QString>

namespace driftbox {

/// A two-line preview of a text: the beginnings of its first two non-blank lines.
struct PreviewLines
{
    QString first;
    QString second;
    bool hasMore = false; ///< there is more text after the second line

    bool operator==(const PreviewLines&) const = default;
};

/// Examines only as much of `text` as two lines can hold. Control characters other than tabs, and
/// bidirectional embeddings and overrides, are omitted.
[[nodiscard]] PreviewLines previewLines(const QString& text);

} // namespace driftbox
