#include "settings/SettingsSectionsModel.h"

#include "settings/SettingsNavigation.h"

#include <algorithm>

namespace driftbox {

SettingsSectionsModel::SettingsSectionsModel(const SettingsNavigation& navigation, QObject* parent)
    : QAbstractListModel(parent)
    , m_navigation(navigation)
    , m_sections(navigation.filteredSections())
{
    connect(&navigation, &SettingsNavigation::sidebarQueryChanged, this,
            &SettingsSectionsModel::refilter);
}

int SettingsSectionsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_sections.size());
}

QVariant SettingsSectionsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SettingsSection section = m_sections[static_cast<size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return lookOf(section).title;
    case Qt::AccessibleDescriptionRole:
        return lookOf(section).subtitle;
    case sectionRole:
        return QVariant::fromValue(section);
    default:
        return {};
    }
}

QModelIndex SettingsSectionsModel::indexOf(SettingsSection section) const
{
    const auto found = std::ranges::find(m_sections, section);
    return found == m_sections.end() ? QModelIndex()
                                     : index(static_cast<int>(found - m_sections.begin()));
}

void SettingsSectionsModel::refilter()
{
    auto sections = m_navigation.filteredSections();
    if (sections == m_sections)
        return;
    beginResetModel();
    m_sections = std::move(sections);
    endResetModel();
}

} // namespace driftbox
