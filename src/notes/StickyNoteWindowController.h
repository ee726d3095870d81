#pragma once

#include "notes/StickyNote.h"

#include <memory>

#include <QtCore/QObject>
#include <QtCore/QRectF>

namespace driftbox {

class FloatingSurface;
class StickyNoteViewModel;

/// The window of a note, with its content. Destroying it destroys the window. Main thread only.
class NoteWindow
{
public:
    NoteWindow() = default;
    Q_DISABLE_COPY_MOVE(NoteWindow)
    virtual ~NoteWindow() = default;

    [[nodiscard]] virtual FloatingSurface& surface() = 0;
    /// How much larger than the note the surface is on each side, for the note's shadow. It changes
    /// only together with the surface's frame.
    [[nodiscard]] virtual double shadowMargin() const = 0;
};

/// Makes the windows of notes. Main thread only.
class NoteWindowFactory
{
public:
    NoteWindowFactory() = default;
    Q_DISABLE_COPY_MOVE(NoteWindowFactory)
    virtual ~NoteWindowFactory() = default;

    /// A window that shows `viewModel`, which outlives it. Not on the screen yet.
    [[nodiscard]] virtual std::unique_ptr<NoteWindow>
    makeWindow(StickyNoteViewModel& viewModel) = 0;
};

/// Owns the view model and the window of one open note, tells the note where the user has put the
/// window, and zooms both together. Main thread only.
class StickyNoteWindowController : public QObject
{
    Q_OBJECT

public:
    /// The window is made at `frame`, in screen space, and not shown yet.
    StickyNoteWindowController(std::unique_ptr<StickyNoteViewModel> viewModel,
                               NoteWindowFactory& windows, const QRectF& frame,
                               QObject* parent = nullptr);
    ~StickyNoteWindowController() override;

    [[nodiscard]] const StickyNoteId& noteID() const;
    [[nodiscard]] StickyNoteViewModel& viewModel() { return *m_viewModel; }

    /// Brings the window to the front; typing goes to it.
    void showWindow();
    /// Takes the window off the screen.
    void orderOut();
    [[nodiscard]] bool isKey() const;

    /// Scales window and text together, each within its own limits; the window keeps its center.
    void zoom(double factor);

private:
    [[nodiscard]] QRectF frame() const;
    void setFrame(const QRectF& frame);
    void zoomWindow(double factor);

    std::unique_ptr<StickyNoteViewModel> m_viewModel;
    std::unique_ptr<NoteWindow> m_window;
};

} // namespace driftbox
