#include "clipboard/recognition/ConnectedComponents.h"

#include <algorithm>
#include <numeric>

namespace driftbox {

ConnectedComponents::ConnectedComponents(const QImage& mask)
{
    findRuns(mask);
    joinTouchingRuns();
    collectComponents();
}

void ConnectedComponents::findRuns(const QImage& mask)
{
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* line = mask.constScanLine(y);
        for (int x = 0; x < mask.width(); ++x) {
            if (line[x] == 0)
                continue;
            const int left = x;
            while (x < mask.width() && line[x] != 0)
                ++x;
            m_runs.push_back({.y = y, .left = left, .right = x});
        }
    }
}

void ConnectedComponents::joinTouchingRuns()
{
    m_parents.resize(m_runs.size());
    std::iota(m_parents.begin(), m_parents.end(), 0);

    size_t above = 0; // the first run of the row above that may touch
    for (size_t current = 0; current < m_runs.size(); ++current) {
        const Run& run = m_runs[current];
        while (m_runs[above].y < run.y - 1 ||
               (m_runs[above].y == run.y - 1 && m_runs[above].right < run.left))
            ++above;
        for (size_t i = above; m_runs[i].y == run.y - 1 && m_runs[i].left <= run.right; ++i)
            join(static_cast<int>(i), static_cast<int>(current));
    }
}

int ConnectedComponents::root(int run)
{
    auto node = static_cast<size_t>(run);
    while (m_parents[node] != static_cast<int>(node)) {
        const auto parent = static_cast<size_t>(m_parents[node]);
        m_parents[node] = m_parents[parent];
        node = parent;
    }
    return static_cast<int>(node);
}

void ConnectedComponents::join(int first, int second)
{
    const auto [low, high] = std::minmax({root(first), root(second)});
    m_parents[static_cast<size_t>(high)] = low;
}

void ConnectedComponents::collectComponents()
{
    // The root of a tree is its run with the smallest index, so it is visited first.
    for (size_t i = 0; i < m_runs.size(); ++i) {
        Run& run = m_runs[i];
        const int tree = root(static_cast<int>(i));
        if (tree == static_cast<int>(i)) {
            run.component = static_cast<int>(m_components.size());
            m_components.emplace_back();
        } else {
            run.component = m_runs[static_cast<size_t>(tree)].component;
        }
        Component& component = m_components[static_cast<size_t>(run.component)];
        component.box |= QRect(run.left, run.y, run.right - run.left, 1);
        component.pixels += run.right - run.left;
    }
}

} // namespace driftbox
