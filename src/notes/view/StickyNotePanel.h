#pragma once

#include "notes/StickyNoteWindowController.h"
#include "platform/FloatingSurface.h"
#include "ui/theme/CardShape.h"

#include <memory>

#include <QtWidgets/QWidget>

namespace driftbox {

class NoteContentView;
class Pasteboard;
class SelectedText;
class StickyNoteViewModel;

/// The window of a note: a sheet of paper in the note's color, with a shadow around it where the
/// desktop blends windows and a plain rectangle where it does not. It is resized at its edges and
/// corners and moved by dragging anywhere that is not text. Placed, shown and hidden through its
/// surface only.
class StickyNotePanel final : public QWidget, public NoteWindow
{
    Q_OBJECT

public:
    /// All must outlive the panel.
    StickyNotePanel(StickyNoteViewModel& viewModel, FloatingSurfaceFactory& surfaces,
                    Pasteboard& pasteboard, SelectedText& selectedText);
    ~StickyNotePanel() override;

    [[nodiscard]] FloatingSurface& surface() override { return *m_surface; }
    [[nodiscard]] double shadowMargin() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void followCompositing(bool composited);
    void setComposited(bool composited);
    void arrange();
    [[nodiscard]] QRect paper() const;
    [[nodiscard]] Qt::Edges edgesAt(QPoint position) const;

    StickyNoteViewModel& m_viewModel;
    NoteContentView* m_content;
    CardShadow m_shadow;
    std::unique_ptr<FloatingSurface> m_surface;
    bool m_composited = false;
};

/// Makes such windows.
class StickyNotePanelFactory final : public NoteWindowFactory
{
public:
    /// All must outlive the panels.
    StickyNotePanelFactory(FloatingSurfaceFactory& surfaces, Pasteboard& pasteboard,
                           SelectedText& selectedText);

    [[nodiscard]] std::unique_ptr<NoteWindow> makeWindow(StickyNoteViewModel& viewModel) override;

private:
    FloatingSurfaceFactory& m_surfaces;
    Pasteboard& m_pasteboard;
    SelectedText& m_selectedText;
};

} // namespace driftbox
