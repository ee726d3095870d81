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

/// The window of a note: a sheet of paper in the note's color, with rounded corners and a shadow if
/// the desktop is composited, else a plain rectangle. The user resizes it at its edges and corners
/// and moves it by dragging outside of text. Positioned, shown and hidden only through its surface.
class StickyNotePanel final : public QWidget, public NoteWindow
{
    Q_OBJECT

public:
    /// All arguments must outlive the panel.
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
    bool m_isComposited = false;
};

/// Creates sticky note panels.
class StickyNotePanelFactory final : public NoteWindowFactory
{
public:
    /// All arguments must outlive the panels.
    StickyNotePanelFactory(FloatingSurfaceFactory& surfaces, Pasteboard& pasteboard,
                           SelectedText& selectedText);

    [[nodiscard]] std::unique_ptr<NoteWindow> makeWindow(StickyNoteViewModel& viewModel) override;

private:
    FloatingSurfaceFactory& m_surfaces;
    Pasteboard& m_pasteboard;
    SelectedText& m_selectedText;
};

} // namespace driftbox
