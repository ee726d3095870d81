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

/// The content of the panel's window: a card with the section rail and the page of the active
/// section, surrounded by its shadow. Control+Tab switches sections.
class MagicPanelRootView final : public QWidget
{
    Q_OBJECT

public:
    /// `animator` and `registry` must outlive the view.
    MagicPanelRootView(PanelAnimator& animator, SectionRegistry& registry, QWidget* parent);

    /// Without compositing the card has no shadow and is not animated.
    void setComposited(bool composited);

    /// The space around the card for its shadow.
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
    bool m_isComposited = true;
};

} // namespace driftbox
