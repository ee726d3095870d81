#include "panel/SectionRegistry.h"

#include <algorithm>

namespace driftbox {

MagicPanelSection* SectionRegistry::activeSection() const
{
    return m_activeID ? section(*m_activeID) : nullptr;
}

MagicPanelSection* SectionRegistry::section(const QString& id) const
{
    const auto hasId = [&id](const auto& candidate) { return candidate->id() == id; };
    const auto found = std::ranges::find_if(m_sections, hasId);
    return found == m_sections.end() ? nullptr : found->get();
}

void SectionRegistry::registerSection(std::unique_ptr<MagicPanelSection> added)
{
    const QString id = added->id();
    if (section(id))
        return;
    m_sections.push_back(std::move(added));
    Q_EMIT sectionsChanged();
    if (!m_activeID)
        setActiveID(id);
}

void SectionRegistry::select(const QString& id)
{
    if (section(id))
        setActiveID(id);
}

void SectionRegistry::selectNeighbor(int steps)
{
    const auto isActive = [this](const auto& candidate) { return candidate->id() == m_activeID; };
    const auto active = std::ranges::find_if(m_sections, isActive);
    if (active == m_sections.end())
        return;
    const auto count = std::ssize(m_sections);
    const auto index = ((active - m_sections.begin() + steps) % count + count) % count;
    setActiveID(m_sections[static_cast<std::size_t>(index)]->id());
}

void SectionRegistry::setActiveID(const QString& id)
{
    if (m_activeID == id)
        return;
    m_activeID = id;
    Q_EMIT activeIDChanged();
}

} // namespace driftbox
