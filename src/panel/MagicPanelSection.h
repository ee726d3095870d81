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
    /// The tooltip of the section's button on the rail.
    [[nodiscard]] virtual QString title() const = 0;
    /// The symbol of the section's button on the rail.
    [[nodiscard]] virtual QString systemImage() const = 0;

    /// Creates the section's content, owned by `parent`; called each time the section becomes
    /// active. The content fills the panel's content area and paints no background. It receives the
    /// focus, through its focus proxy if it has one, whenever the panel is shown.
    [[nodiscard]] virtual QWidget* makeRootView(QWidget* parent) = 0;
};

} // namespace driftbox
