#include "clipboard/recognition/InkMap.h"

#include "clipboard/recognition/ConnectedComponents.h"

#include <algorithm>
#include <array>

namespace driftbox {

namespace {

using Component = ConnectedComponents::Component;

// Color differences are summed over the three channels.
constexpr int channels = 3;
constexpr int minContrast = 20 * channels;
constexpr int contrastOverNoise = 6;

// The values of the edge map.
constexpr uchar noEdge = 0;
constexpr uchar nonTextEdge = 1;
constexpr uchar edge = 255; // may belong to text

constexpr int maxTextHeight = 200; // pixels
constexpr int minFrameHeight = 12;

int difference(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
           std::abs(qBlue(a) - qBlue(b));
}

const QRgb* pixels(const QImage& picture, int y)
{
    return reinterpret_cast<const QRgb*>(picture.constScanLine(y));
}

/// The larger of a pixel's differences from its right and lower neighbors.
int gradient(const QRgb* line, const QRgb* below, int x)
{
    return std::max(difference(line[x], line[x + 1]), difference(line[x], below[x]));
}

/// The minimum gradient of an edge, well above the picture's noise.
int edgeThreshold(const QImage& picture)
{
    std::array<qint64, 255 * channels + 1> histogram{};
    qint64 count = 0;
    for (int y = 0; y + 1 < picture.height(); y += 2) {
        for (int x = 0; x + 1 < picture.width(); x += 2) {
            const int value = gradient(pixels(picture, y), pixels(picture, y + 1), x);
            ++histogram[static_cast<size_t>(value)];
            ++count;
        }
    }
    size_t median = 0;
    for (qint64 seen = histogram[0]; seen * 2 < count; seen += histogram[median])
        ++median;
    return std::max(minContrast, static_cast<int>(median) * contrastOverNoise);
}

QImage edgesOf(const QImage& picture)
{
    QImage edges(picture.size(), QImage::Format_Grayscale8);
    edges.fill(noEdge);
    const int threshold = edgeThreshold(picture);
    for (int y = 0; y + 1 < picture.height(); ++y) {
        uchar* out = edges.scanLine(y);
        for (int x = 0; x + 1 < picture.width(); ++x) {
            if (gradient(pixels(picture, y), pixels(picture, y + 1), x) >= threshold)
                out[x] = edge;
        }
    }
    return edges;
}

bool isRule(const Component& component)
{
    const int width = component.box.width();
    const int height = component.box.height();
    return (height <= 4 && width > 16 * height) || (width <= 4 && height > 12 * width);
}

/// The lengths of a component's unbroken marks along the sides of its bounding box.
struct Sides
{
    int top = 0;
    int bottom = 0;
    int left = 0;
    int right = 0;

    void add(const ConnectedComponents::Run& run, const QRect& box)
    {
        constexpr int slack = 2;
        if (run.y <= box.top() + slack)
            top = std::max(top, run.right - run.left);
        if (run.y >= box.bottom() - slack)
            bottom = std::max(bottom, run.right - run.left);
        if (run.left <= box.left() + slack)
            ++left;
        if (run.right > box.right() - slack)
            ++right;
    }

    /// Whether they look like the frame of a field or a panel, possibly with rounded corners, and
    /// not like a square character.
    [[nodiscard]] bool areFrame(const QSize& size) const
    {
        const bool mayBeCharacter = size.height() < 64 && size.width() * 5 < size.height() * 8;
        return !mayBeCharacter && size.height() >= minFrameHeight && 2 * top >= size.width() &&
               2 * bottom >= size.width() && 2 * left >= size.height() &&
               2 * right >= size.height();
    }
};

/// Which shapes may be text, judging by their form.
std::vector<bool> textCandidates(const ConnectedComponents& shapes)
{
    const std::vector<Component>& components = shapes.components();
    std::vector<Sides> sides(components.size());
    for (const ConnectedComponents::Run& run : shapes.runs()) {
        const auto i = static_cast<size_t>(run.component);
        sides[i].add(run, components[i].box);
    }
    std::vector<bool> isCandidate(components.size(), true);
    for (size_t i = 0; i < components.size(); ++i) {
        const QRect& box = components[i].box;
        if (box.height() > maxTextHeight || isRule(components[i])) {
            isCandidate[i] = false;
        } else if (sides[i].areFrame(box.size())) {
            isCandidate[i] = std::ranges::none_of(components, [&](const Component& other) {
                return &other != &components[i] && box.contains(other.box, true);
            });
        }
    }
    return isCandidate;
}

/// The pixels around a shape.
struct Surroundings
{
    QRgb background = 0; ///< the median color
    bool isInk = false;  ///< the shape is the inside of a character, such as an o
};

/// Samples the pixels along the border of `box` that are not on an edge.
Surroundings surroundingsOf(const QRect& box, const QImage& picture, const QImage& edges,
                            const QImage& marks)
{
    std::array<std::vector<int>, channels> values;
    size_t marked = 0;
    const auto sample = [&](int x, int y) {
        if (edges.constScanLine(y)[x] != noEdge)
            return;
        const QRgb pixel = pixels(picture, y)[x];
        values[0].push_back(qRed(pixel));
        values[1].push_back(qGreen(pixel));
        values[2].push_back(qBlue(pixel));
        marked += marks.constScanLine(y)[x] != 0 ? 1 : 0;
    };
    for (int x = box.left(); x <= box.right(); ++x) {
        sample(x, box.top());
        sample(x, box.bottom());
    }
    for (int y = box.top(); y <= box.bottom(); ++y) {
        sample(box.left(), y);
        sample(box.right(), y);
    }
    if (values[0].empty())
        return {.background = pixels(picture, box.top())[box.left()]};
    const auto median = [](std::vector<int>& channel) {
        const auto middle = channel.begin() + static_cast<std::ptrdiff_t>(channel.size() / 2);
        std::ranges::nth_element(channel, middle);
        return *middle;
    };
    return {.background = qRgb(median(values[0]), median(values[1]), median(values[2])),
            .isInk = 2 * marked > values[0].size()};
}

/// Adds the pixels in `box` that differ from their background to the map, except non-text edges.
void addInk(const QRect& box, const QImage& picture, const QImage& edges, InkMap& map)
{
    const auto [background, isInk] =
        surroundingsOf(box.adjusted(-2, -2, 2, 2) & picture.rect(), picture, edges, map.marks);
    if (isInk)
        return;
    const QRect area = box.adjusted(-1, -1, 1, 1) & picture.rect();

    int contrast = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (edges.constScanLine(y)[x] != nonTextEdge)
                contrast = std::max(contrast, difference(pixels(picture, y)[x], background));
        }
    }
    for (int y = area.top(); y <= area.bottom(); ++y) {
        uchar* strength = map.strength.scanLine(y);
        uchar* marks = map.marks.scanLine(y);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (edges.constScanLine(y)[x] == nonTextEdge)
                continue;
            const int value = difference(pixels(picture, y)[x], background);
            strength[x] = std::max(strength[x], static_cast<uchar>(value / channels));
            if (value * 5 >= contrast * 2)
                marks[x] = 255;
        }
    }
}

} // namespace

InkMap inkOf(const QImage& picture)
{
    InkMap map{.strength = QImage(picture.size(), QImage::Format_Grayscale8),
               .marks = QImage(picture.size(), QImage::Format_Grayscale8)};
    map.strength.fill(0);
    map.marks.fill(0);

    QImage edges = edgesOf(picture);
    const ConnectedComponents shapes(edges);
    const std::vector<bool> isCandidate = textCandidates(shapes);
    for (const ConnectedComponents::Run& run : shapes.runs()) {
        if (!isCandidate[static_cast<size_t>(run.component)])
            std::fill(edges.scanLine(run.y) + run.left, edges.scanLine(run.y) + run.right,
                      nonTextEdge);
    }
    std::vector<QRect> boxes;
    for (size_t i = 0; i < isCandidate.size(); ++i) {
        if (isCandidate[i])
            boxes.push_back(shapes.components()[i].box);
    }
    // Enclosing boxes are processed before those they contain.
    std::ranges::sort(boxes, std::ranges::greater(), &QRect::height);
    for (const QRect& box : boxes)
        addInk(box, picture, edges, map);
    return map;
}

} // namespace driftbox
