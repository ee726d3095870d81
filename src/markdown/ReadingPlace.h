#pragma once

#include <QtCore/QString>

namespace driftbox {

/// A position in a document: a block of the source, or an anchor.
struct ReadingPlace
{
    int line = 0;          ///< the first line of the topmost visible block; 0 is the text's first
    double offset = 0;     ///< of that block's top from the viewport's, in CSS pixels
    int sourceLine = 0;    ///< the approximate source line at the top of the viewport
    QString fragment = {}; ///< of an address; overrides the other members unless empty

    [[nodiscard]] bool operator==(const ReadingPlace&) const = default;
};

} // namespace driftbox
