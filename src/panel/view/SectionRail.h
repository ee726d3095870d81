#pragma once

#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace driftbox {

class RailIconButton;
class SectionRegistry;

/// The rail along the panel's left edge: one button per section and, at the bottom, the settings
/// button.
class SectionRail final : public QWidget
{
    Q_OBJECT

public:
    /// `registry` must outlive the rail.
    SectionRail(SectionRegistry& registry, QWidget* parent);

Q_SIGNALS:
    void settingsRequested();

private:
    void addNewSections();
    void markActiveSection();

    SectionRegistry& m_registry;
    QVBoxLayout* m_sectionButtons; ///< in the order of the registry
    RailIconButton* m_settings;
};

} // namespace driftbox
