#pragma once

#include <vector>

#include <QtGui/QImage>

namespace driftbox {

/// Where in the picture of a line there is no ink from top to bottom.
class ColumnGaps
{
public:
    struct Gap
    {
        int begin = 0; ///< the first column without ink
        int end = 0;   ///< the first column with ink again

        [[nodiscard]] int width() const { return end - begin; }
    };

    /// `line` is black on white (Grayscale8).
    explicit ColumnGaps(const QImage& line);

    /// The gap before a word that Tesseract has begin at column `x`, which is where it was sure of
    /// its first character: some way into it. Empty where there is none.
    [[nodiscard]] Gap before(int x) const;

private:
    std::vector<Gap> m_gaps;
    int m_lag; ///< columns
};

} // namespace driftbox
