#pragma once

#include "panel/MagicPanelSection.h"

#include <memory>
#include <optional>
#include <vector>

#include <QtCore/QObject>

namespace driftbox {

/// The panel's sections in the order of the rail, and which one is shown. Sections are never
/// removed. Main thread only.
class SectionRegistry : public QObject
{
    Q_OBJECT

public:
    using Sections = std::vector<std::unique_ptr<MagicPanelSection>>;

    using QObject::QObject;

    [[nodiscard]] const Sections& sections() const { return m_sections; }
    [[nodiscard]] const std::optional<QString>& activeID() const { return m_activeID; }
    /// The section that has the active id; null while there is none.
    [[nodiscard]] MagicPanelSection* activeSection() const;

    /// Adds a section at the end; the first one becomes active. A section whose id is taken already
    /// is destroyed instead.
    void registerSection(std::unique_ptr<MagicPanelSection> added);

    /// Makes the section with this id active; an unknown id is ignored.
    void select(const QString& id);

    /// Makes the section `steps` places after the active one active, counting around the ends.
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
