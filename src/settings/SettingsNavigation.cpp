#include "settings/SettingsNavigation.h"

#include "core/CaseInsensitiveMatcher.h"

#include <algorithm>

namespace driftbox {

namespace {

bool isHorizontalSpace(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

QString trimmed(const QString& text)
{
    const auto first = std::ranges::find_if_not(text, isHorizontalSpace);
    const auto last = std::find_if_not(text.crbegin(), text.crend(), isHorizontalSpace).base();
    return first < last ? QString(first, last - first) : QString();
}

} // namespace

void SettingsNavigation::setSelection(std::optional<SettingsSection> selection)
{
    if (m_selection == selection)
        return;
    m_selection = selection;
    Q_EMIT selectionChanged();
}

void SettingsNavigation::setSidebarQuery(const QString& query)
{
    if (m_sidebarQuery == query)
        return;
    m_sidebarQuery = query;
    Q_EMIT sidebarQueryChanged();
}

std::vector<SettingsSection> SettingsNavigation::filteredSections() const
{
    const CaseInsensitiveMatcher matcher(trimmed(m_sidebarQuery), QLocale());
    std::vector<SettingsSection> sections;
    std::ranges::copy_if(
        allSettingsSections, std::back_inserter(sections),
        [&matcher](SettingsSection section) { return matcher.isIn(lookOf(section).title); });
    return sections;
}

} // namespace driftbox
