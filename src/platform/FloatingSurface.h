#pragma once

#include <memory>

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <QtGui/QRegion>

class QWindow;

namespace driftbox {

/// A window that the program draws all of, its frame included. Panels and notes float above the
/// others on every desktop, outside the task bar and the pager.
///
/// Main thread only. The view makes the window's content; place, stacking, visibility and keyboard
/// are asked for here and nowhere else.
class FloatingSurface : public QObject
{
    Q_OBJECT

public:
    enum class Role {
        panel,    ///< one at a time, comes and goes, takes the keyboard when it is presented
        note,     ///< stays, moved and resized by the user
        ordinary, ///< a window among the others, moved and resized by the user
    };
    enum class Keyboard {
        take,  ///< the user asked for this window: typing goes to it
        leave, ///< typing stays where it is
    };

    /// The window's frame in screen space (points, y growing upwards from the bottom of the primary
    /// screen).
    [[nodiscard]] virtual QRectF frame() const = 0;
    virtual void setFrame(const QRectF& frame) = 0;

    [[nodiscard]] virtual bool isVisible() const = 0;
    /// Whether typing goes to this window.
    [[nodiscard]] virtual bool isKey() const = 0;

    /// Shows the window in front of all others; brings it to the front when it is shown already.
    virtual void present(Keyboard keyboard) = 0;
    /// Takes the window off the screen; it resigns the keyboard if it had it.
    virtual void orderOut() = 0;

    /// Whether the desktop blends windows, so that transparent pixels show what is beneath.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// The part of the window, in its own points, that exists for the user: clicks elsewhere go to
    /// what is beneath, and without compositing nothing elsewhere is drawn. Empty means all of it.
    virtual void setShape(const QRegion& shape) = 0;

    /// Whether the mouse reaches what is beneath the window everywhere, as if nothing were there.
    /// False until it is asked for.
    virtual void setClickThrough(bool clickThrough) = 0;

    /// Hands the window to the user, who is holding a mouse button down on it, to be dragged until
    /// the button is let go. Nothing happens when it has been let go meanwhile.
    virtual void startMove() = 0;
    virtual void startResize(Qt::Edges edges) = 0;

Q_SIGNALS:
    void becameKey();
    void resignedKey();
    /// The user moved or resized the window.
    void frameChangedByUser(const QRectF& frame);
    void compositedChanged(bool composited);

protected:
    using QObject::QObject;
};

/// Makes floating surfaces of toolkit windows. Main thread only.
class FloatingSurfaceFactory
{
public:
    FloatingSurfaceFactory() = default;
    FloatingSurfaceFactory(const FloatingSurfaceFactory&) = delete;
    FloatingSurfaceFactory& operator=(const FloatingSurfaceFactory&) = delete;
    virtual ~FloatingSurfaceFactory() = default;

    /// Turns `window`, created but never shown, into a floating surface of `role`. The window is
    /// not owned and must outlive the surface.
    [[nodiscard]] virtual std::unique_ptr<FloatingSurface> adopt(QWindow& window,
                                                                 FloatingSurface::Role role) = 0;
};

} // namespace driftbox
