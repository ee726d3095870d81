#include "clipboard/Characters.h"

#include <algorithm>

#include <QtCore/QTextBoundaryFinder>

namespace driftbox {

namespace {

// The index after the first `count` characters of `text`, or its size if it has fewer.
qsizetype endOfCharacters(QStringView text, qsizetype count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    while (count > 0 && finder.toNextBoundary() >= 0)
        --count;
    return finder.position() < 0 ? text.size() : finder.position();
}

} // namespace

QString firstCharacters(const QString& text, qsizetype count)
{
    if (text.size() <= count)
        return text;
    if (count <= 0)
        return {};
    // QTextBoundaryFinder analyzes the whole text up front, so give it a window only. A character
    // that ends at the window's end may continue beyond it: retry with a larger window.
    for (qsizetype window = std::min(4 * count, text.size());;
         window = std::min(4 * window, text.size())) {
        const qsizetype end = endOfCharacters(QStringView(text).first(window), count);
        if (end < window || window == text.size())
            return text.first(end);
    }
}

} // namespace driftbox
