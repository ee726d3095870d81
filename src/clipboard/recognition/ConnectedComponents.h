#pragma once

#include <vector>

#include <QtCore/QRect>
#include <QtGui/QImage>

namespace driftbox {

/// The marked pixels of a mask, gathered into components: sets of pixels that touch each other,
/// diagonally too. Thread-safe once made.
class ConnectedComponents
{
public:
    struct Component
    {
        QRect box;
        int pixels = 0;
    };

    /// Marked pixels side by side: from `left` up to, not including, `right`.
    struct Run
    {
        int y = 0;
        int left = 0;
        int right = 0;
        int component = 0; ///< index into `components()`
    };

    /// `mask` has the format Grayscale8; every value but 0 is a mark.
    explicit ConnectedComponents(const QImage& mask);

    [[nodiscard]] const std::vector<Component>& components() const { return m_components; }

    /// From top to bottom and from left to right.
    [[nodiscard]] const std::vector<Run>& runs() const { return m_runs; }

private:
    void findRuns(const QImage& mask);
    void joinTouchingRuns();
    void gatherComponents();
    [[nodiscard]] int root(int run);
    void join(int first, int second);

    std::vector<Run> m_runs;
    std::vector<int> m_parents; ///< of each run, in the forest of runs that touch
    std::vector<Component> m_components;
};

} // namespace driftbox
