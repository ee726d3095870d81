#pragma once

#include "settings/SettingsSection.h"

#include <vector>

#include <QtCore/QAbstractListModel>

namespace driftbox {

class SettingsNavigation;

/// The pages that the sidebar lists, with their titles.
class SettingsSectionsModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        sectionRole = Qt::UserRole, ///< the SettingsSection
    };

    /// `navigation` must outlive the model.
    explicit SettingsSectionsModel(const SettingsNavigation& navigation, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// Invalid when the page is not listed.
    [[nodiscard]] QModelIndex indexOf(SettingsSection section) const;

private:
    void refilter();

    const SettingsNavigation& m_navigation;
    std::vector<SettingsSection> m_sections;
};

} // namespace driftbox
