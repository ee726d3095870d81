#pragma once

#include "settings/SettingsSection.h"

#include <QtWidgets/QWidget>

namespace driftbox {

class FormLabel;

/// The header of a settings page: a large tile with its symbol, its title and its subtitle.
class SettingsHeader final : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsHeader(QWidget* parent);

    void setSection(SettingsSection section);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SettingsSection m_section = SettingsSection::general;
    FormLabel* m_title;
    FormLabel* m_subtitle;
};

} // namespace driftbox
