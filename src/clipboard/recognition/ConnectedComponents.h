#pragma once

#include <vector>

#include <QtCore/QRect>
#include <QtGui/QImage>

namespace driftbox {

/// Labels the 8-connected components of a mask's marked pixels. Immutable once constructed.
class ConnectedComponents
{
public:
    struct Component
    {
        QRect box;
        int pixels = 0;
    };

    /// A horizontal run of marked pixels, from `left` up to but not including `right`.
    struct Run
    {
        int y = 0;
        int left = 0;
        int right = 0;
        int component = 0; ///< index into `components()`
    };

    /// `mask` has Format_Grayscale8; every nonzero pixel is marked.
    explicit ConnectedComponents(const QImage& mask);

    [[nodiscard]] const std::vector<Component>& components() const { return m_components; }

    /// From top to bottom and from left to right.
    [[nodiscard]] const std::vector<Run>& runs() const { return m_runs; }

private:
    void findRuns(const QImage& mask);
    void joinTouchingRuns();
    void collectComponents();
    [[nodiscard]] int root(int run);
    void join(int first, int second);

    std::vector<Run> m_runs;
    std::vector<int> m_parents; ///< the parent of each run in a union-find forest
    std::vector<Component> m_components;
};

} // namespace driftbox
