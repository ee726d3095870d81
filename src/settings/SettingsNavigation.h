#pragma once

#include "settings/SettingsSection.h"

#include <optional>
#include <vector>

#include <QtCore/QObject>

namespace driftbox {

/// The open settings page and the pages that the sidebar lists. Main thread only.
class SettingsNavigation : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// None when the user has cleared the selection.
    [[nodiscard]] std::optional<SettingsSection> selection() const { return m_selection; }
    void setSelection(std::optional<SettingsSection> selection);

    /// The query filters the list and does not change the open page.
    [[nodiscard]] const QString& sidebarQuery() const { return m_sidebarQuery; }
    void setSidebarQuery(const QString& query);

    /// All pages if the query is blank, else those whose title contains it (case-insensitive), in
    /// order.
    [[nodiscard]] std::vector<SettingsSection> filteredSections() const;

Q_SIGNALS:
    void selectionChanged();
    void sidebarQueryChanged();

private:
    std::optional<SettingsSection> m_selection = SettingsSection::general;
    QString m_sidebarQuery;
};

} // namespace driftbox
