#pragma once

#include "panel/MagicPanelSection.h"

#include <memory>
#include <optional>
#include <vector>

#include <QtCore/QObject>

namespace driftbox {

/// The panel's sections in the order of the rail, and which one is active. Sections are never
/// removed. Main thread only.
class SectionRegistry : public QObject
{
    Q_OBJECT

public:
    using Sections = std::vector<std::unique_ptr<MagicPanelSection>>;

    using QObject::QObject;

    [[nodiscard]] const Sections& sections() const { return m_sections; }
    [[nodiscard]] const std::optional<QString>& activeID() const { return m_activeID; }
    /// The section with the active id; null if there is none.
    [[nodiscard]] MagicPanelSection* activeSection() const;

    /// Appends a section; the first one becomes active. A section with a duplicate id is discarded.
    void registerSection(std::unique_ptr<MagicPanelSection> added);

    /// Makes the section with this id active; an unknown id is ignored.
    void select(const QString& id);

    /// Activates the section `steps` positions after the active one, wrapping around at the ends.
    void selectNeighbor(int steps);

Q_SIGNALS:
    void sectionsChanged();
    void activeIDChanged();

private:
    [[nodiscard]] MagicPanelSection* section(const QString& id) const;
    void setActiveID(const QString& id);

    Sections m_sections;
    std::optional<QString> m_activeID;
};

} // namespace driftbox
