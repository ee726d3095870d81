#pragma once

#include <vector>

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QWidget>

class QGraphicsOpacityEffect;

namespace driftbox {

class NoteButton;
class NoteSwatchButton;
class NoteSymbolButton;
class StickyNoteViewModel;

/// The controls of a note: colors, save, copy, new note, close. The row fades in and out; while it
/// is faded out it is hidden and ignores clicks.
class NoteControlRow final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int preferredHeight = 24;

    /// `viewModel` must outlive the row, which is hidden initially.
    NoteControlRow(StickyNoteViewModel& viewModel, QWidget* parent);

    /// Fades the row in or out.
    void setPresent(bool present);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void addSwatches();
    void addButtons();
    void fade(qreal opacity);
    void showColor();
    void showSavedState();

    StickyNoteViewModel& m_viewModel;
    std::vector<NoteSwatchButton*> m_swatches;
    std::vector<NoteButton*> m_buttons; ///< all but the swatches, from left to right
    NoteSymbolButton* m_saveButton = nullptr;
    QGraphicsOpacityEffect* m_effect;
    QVariantAnimation* m_animation;
};

} // namespace driftbox
