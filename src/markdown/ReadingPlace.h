#pragma once

#include <QtCore/QString>

namespace driftbox {

/// Where in a document its reader is, or is to be: at a block of the source, or at an anchor.
struct ReadingPlace
{
    int line = 0;       ///< the first of the block at the top of the window; 0 is the text's first
    double offset = 0;  ///< of that block's upper edge from the window's, in pixels of the page
    int sourceLine = 0; ///< of the text at the top of the window, as good as can be told
    QString fragment = {}; ///< of an address; unless empty, this is the place

    [[nodiscard]] bool operator==(const ReadingPlace&) const = default;
};

} // namespace driftbox
