#pragma once

#include <vector>

#include <QtGui/QImage>

namespace driftbox {

/// The runs of columns without any ink in the picture of a line.
class ColumnGaps
{
public:
    struct Gap
    {
        int begin = 0; ///< the first column without ink
        int end = 0;   ///< the first column after the gap

        [[nodiscard]] int width() const { return end - begin; }
    };

    /// `line` is black on white (Format_Grayscale8).
    explicit ColumnGaps(const QImage& line);

    /// The gap before a word that begins at column `x` according to Tesseract, whose bounding boxes
    /// start somewhat inside the first character. Empty if there is none.
    [[nodiscard]] Gap before(int x) const;

private:
    std::vector<Gap> m_gaps;
    int m_lag; ///< how far before `x` a gap may end, in columns
};

} // namespace driftbox
