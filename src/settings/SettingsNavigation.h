#pragma once

#include "settings/SettingsSection.h"

#include <optional>
#include <vector>

#include <QtCore/QObject>

namespace driftbox {

/// Which page of the settings is open, and which ones the sidebar lists. Main thread only.
class SettingsNavigation : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        QString sidebarQuery READ sidebarQuery WRITE setSidebarQuery NOTIFY sidebarQueryChanged)

public:
    using QObject::QObject;

    /// None when the user has taken the selection back.
    [[nodiscard]] std::optional<SettingsSection> selection() const { return m_selection; }
    void setSelection(std::optional<SettingsSection> selection);

    /// A query changes what is listed, never what is open.
    [[nodiscard]] const QString& sidebarQuery() const { return m_sidebarQuery; }
    void setSidebarQuery(const QString& query);

    /// All pages while the query is blank, else those whose title contains it in whatever case; in
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
