#include "core/PreviewLines.h"

#include <algorithm>
#include <array>

#include <QtCore/QStringView>

namespace driftbox {

namespace {

// More characters than fit in a line of the panel, however narrow they are.
constexpr qsizetype maxLineLength = 240;
// Limits the search for visible characters in long runs of white space or omitted characters.
constexpr qsizetype maxExaminedLength = 4000;

bool isLineBreak(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
    case u'\v':
    case u'\f':
    case u'\r':
    case 0x0085:
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

// Bidirectional embeddings and overrides: they could make a text look like a different one.
bool isBidiControl(QChar character)
{
    return character.unicode() >= 0x202a && character.unicode() <= 0x202e;
}

bool isShown(QChar character)
{
    if (character == u'\t')
        return true;
    return character.category() != QChar::Other_Control && !isBidiControl(character);
}

} // namespace

PreviewLines previewLines(const QString& text)
{
    std::array<QString, 2> lines;
    size_t line = 0;
    bool isBlank = true;
    for (const QChar character :
         QStringView(text).first(std::min(text.size(), maxExaminedLength))) {
        if (isLineBreak(character)) {
            if (!isBlank)
                ++line;
            else if (line < lines.size())
                lines[line].clear();
            isBlank = true;
            continue;
        }
        if (!isShown(character))
            continue;
        isBlank = isBlank && character.isSpace();
        if (line >= lines.size()) {
            if (!isBlank)
                return {lines[0], lines[1], true};
        } else if (lines[line].size() < maxLineLength) {
            lines[line] += character;
        }
    }
    return {lines[0], lines[1], text.size() > maxExaminedLength};
}

} // namespace driftbox
