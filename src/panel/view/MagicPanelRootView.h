#pragma once

#include "ui/theme/CardShape.h"

#include <QtCore/QPointer>
#include <QtGui/QRegion>
#include <QtWidgets/QWidget>

namespace driftbox {

class MagicPanelSection;
class PanelAnimator;
class PanelTransition;
class SectionRegistry;

/// What the panel's window shows: a card with the rail of the sections and the page of the active
/// one, and around the card room for its shadow. Control and Tab change the section.
class MagicPanelRootView final : public QWidget
{
    Q_OBJECT

public:
    /// Both models must outlive the view.
    MagicPanelRootView(PanelAnimator& animator, SectionRegistry& registry, QWidget* parent);

    /// Without compositing there is nothing around the card, and it neither grows nor fades.
    void setComposited(bool composited);

    /// The room around the card.
    [[nodiscard]] static QMargins shadowMargins();
    /// The card in the view's coordinates.
    [[nodiscard]] QRegion cardRegion() const;

Q_SIGNALS:
    void settingsRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void buildLayout(QWidget& rail);
    void addShortcut(const QKeySequence& keys, int steps);
    void showActiveSection();
    void focusPage();
    void handleVisibleChanged(bool visible);

    SectionRegistry& m_registry;
    PanelTransition* m_transition;
    QWidget* m_contentArea;
    QPointer<QWidget> m_page;
    const MagicPanelSection* m_shownSection = nullptr;
    CardShadow m_shadow;
    bool m_composited = true;
};

} // namespace driftbox
