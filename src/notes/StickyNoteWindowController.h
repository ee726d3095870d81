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
    /// The space for the note's shadow on each side of the surface, in points. Changes only
    /// together with the surface's frame.
    [[nodiscard]] virtual double shadowMargin() const = 0;
};

/// Creates the windows of notes. Main thread only.
class NoteWindowFactory
{
public:
    NoteWindowFactory() = default;
    Q_DISABLE_COPY_MOVE(NoteWindowFactory)
    virtual ~NoteWindowFactory() = default;

    /// Creates a hidden window that shows `viewModel`, which must outlive it.
    [[nodiscard]] virtual std::unique_ptr<NoteWindow>
    makeWindow(StickyNoteViewModel& viewModel) = 0;
};

/// Owns the view model and the window of an open note, reports the frames set by the user to the
/// view model, and zooms window and text together. Main thread only.
class StickyNoteWindowController : public QObject
{
    Q_OBJECT

public:
    /// Creates the window at `frame`, in screen space, without showing it.
    StickyNoteWindowController(std::unique_ptr<StickyNoteViewModel> viewModel,
                               NoteWindowFactory& windows, const QRectF& frame,
                               QObject* parent = nullptr);
    ~StickyNoteWindowController() override;

    [[nodiscard]] const StickyNoteId& noteID() const;
    [[nodiscard]] StickyNoteViewModel& viewModel() { return *m_viewModel; }

    /// Shows the window in front of others and gives it the keyboard focus.
    void showWindow();
    /// Hides the window.
    void orderOut();
    /// Whether the window has the keyboard focus.
    [[nodiscard]] bool isKey() const;

    /// Scales the window, around its center, and the text, each within its own limits.
    void zoom(double factor);

private:
    [[nodiscard]] QRectF frame() const;
    void setFrame(const QRectF& frame);
    void zoomWindow(double factor);

    std::unique_ptr<StickyNoteViewModel> m_viewModel;
    std::unique_ptr<NoteWindow> m_window;
};

} // namespace driftbox
