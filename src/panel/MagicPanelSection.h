#pragma once

#include <QtCore/QString>

class QWidget;

namespace driftbox {

/// One page of the panel. Main thread only.
class MagicPanelSection
{
public:
    MagicPanelSection() = default;
    Q_DISABLE_COPY_MOVE(MagicPanelSection)
    virtual ~MagicPanelSection() = default;

    /// Unique among the registered sections.
    [[nodiscard]] virtual QString id() const = 0;
    /// The help of the section's button on the rail.
    [[nodiscard]] virtual QString title() const = 0;
    /// The symbol of the section's button on the rail.
    [[nodiscard]] virtual QString systemImage() const = 0;

    /// Makes the section's content, owned by `parent`; called each time the section is made active.
    /// The content fills the panel's content area and paints no background of its own. Its focus
    /// proxy, where it has one, gets the typing whenever the panel is shown.
    [[nodiscard]] virtual QWidget* makeRootView(QWidget* parent) = 0;
};

} // namespace driftbox
