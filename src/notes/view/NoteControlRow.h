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

/// The controls of a note: its colors, saving, copying, a new note, closing. It fades in and out,
/// and while it is out it is not there for clicks either.
class NoteControlRow final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int preferredHeight = 24;

    /// `viewModel` must outlive the row, which is out at first.
    NoteControlRow(StickyNoteViewModel& viewModel, QWidget* parent);

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
    std::vector<NoteButton*> m_buttons; ///< the others, from left to right
    NoteSymbolButton* m_saveButton = nullptr;
    QGraphicsOpacityEffect* m_effect;
    QVariantAnimation* m_fading;
};

} // namespace driftbox
