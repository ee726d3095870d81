#include "core/PreviewLines.h"

#include <algorithm>
#include <array>

#include <QtCore/QStringView>

namespace driftbox {

namespace {

// More characters than two lines of the panel have room for, however slim they are.
constexpr qsizetype maxLineLength = 240;
// Where blank lines, white space or what is left out go on and on, the rest is not looked for.
constexpr qsizetype farthest = 4000;

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

// Those that embed or override a direction: they would let a text look like another one.
bool turnsDirection(QChar character)
{
    return character.unicode() >= 0x202a && character.unicode() <= 0x202e;
}

bool isShown(QChar character)
{
    if (character == u'\t')
        return true;
    return character.category() != QChar::Other_Control && !turnsDirection(character);
}

} // namespace

PreviewLines previewLines(const QString& text)
{
    std::array<QString, 2> lines;
    size_t line = 0;
    bool isBlank = true;
    for (const QChar character : QStringView(text).first(std::min(text.size(), farthest))) {
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
    return {lines[0], lines[1], text.size() > farthest};
}

} // namespace driftbox
