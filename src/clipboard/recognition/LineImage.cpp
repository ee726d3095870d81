#include "clipboard/recognition/LineImage.h"

#include <algorithm>
#include <array>

namespace driftbox {

namespace {

constexpr double textHeight = 40; // pixels; Tesseract scales lines to a height of 36
constexpr double maxScale = 4;
constexpr int marginDivisor = 5; // of the height
constexpr int minMargin = 2;     // pixels

/// The strength of full ink: a high percentile, so that a few outliers do not matter.
int fullStrength(const InkMap& ink, const QRect& box)
{
    std::array<int, 256> histogram{};
    int marked = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const uchar* strength = ink.strength.constScanLine(y);
        const uchar* marks = ink.marks.constScanLine(y);
        for (int x = box.left(); x <= box.right(); ++x) {
            if (marks[x] == 0)
                continue;
            ++histogram[strength[x]];
            ++marked;
        }
    }
    int strength = 255;
    for (int stronger = histogram[255]; strength > 1 && stronger * 50 <= marked;)
        stronger += histogram[static_cast<size_t>(--strength)];
    return strength;
}

} // namespace

QImage lineImage(const InkMap& ink, const QRect& box)
{
    const QRect area = box.adjusted(-1, -1, 1, 1) & ink.strength.rect();
    const int full = fullStrength(ink, area);
    const int margin = std::max(minMargin, box.height() / marginDivisor);
    QImage line(area.size() + QSize(2 * margin, 2 * margin), QImage::Format_Grayscale8);
    line.fill(Qt::white);
    for (int y = 0; y < area.height(); ++y) {
        const uchar* strength = ink.strength.constScanLine(area.top() + y) + area.left();
        uchar* out = line.scanLine(margin + y) + margin;
        for (int x = 0; x < area.width(); ++x)
            out[x] = static_cast<uchar>(255 - std::min(255, strength[x] * 255 / full));
    }
    const double scale = std::min(textHeight / box.height(), maxScale);
    return line.scaled((QSizeF(line.size()) * scale).toSize().expandedTo(QSize(1, 1)),
                       Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace driftbox
