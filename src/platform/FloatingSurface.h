#pragma once

#include <memory>

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <QtGui/QRegion>

class QWindow;

namespace driftbox {

/// A window that the program draws entirely, including its frame. Panels and notes stay above other
/// windows, on every desktop, and are left out of the task bar and the pager.
///
/// Main thread only. The view creates the window's content; its geometry, stacking, visibility and
/// keyboard focus are controlled through this interface only.
class FloatingSurface : public QObject
{
    Q_OBJECT

public:
    enum class Role {
        panel,    ///< shown one at a time and temporarily, takes the keyboard when presented
        note,     ///< stays on screen, moved and resized by the user
        ordinary, ///< stacked like any other window, moved and resized by the user
    };
    enum class Keyboard {
        take,  ///< give this window the keyboard focus
        leave, ///< leave the keyboard focus where it is
    };

    /// The window's frame in screen space (points, y pointing up from the bottom of the primary
    /// screen).
    [[nodiscard]] virtual QRectF frame() const = 0;
    virtual void setFrame(const QRectF& frame) = 0;

    [[nodiscard]] virtual bool isVisible() const = 0;
    /// Whether this window has the keyboard focus.
    [[nodiscard]] virtual bool isKey() const = 0;

    /// Shows the window in front of all others, or raises it when it is already visible.
    virtual void present(Keyboard keyboard) = 0;
    /// Hides the window, which gives up the keyboard focus if it has it.
    virtual void orderOut() = 0;

    /// Whether the desktop composites windows, so that transparent pixels show what is beneath.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// The visible and clickable part of the window, in its own points: clicks elsewhere go to the
    /// window beneath, and without compositing nothing is drawn there either. An empty region
    /// stands for the whole window.
    virtual void setShape(const QRegion& shape) = 0;

    /// Makes all mouse events pass through to what is beneath the window. Off by default.
    virtual void setClickThrough(bool clickThrough) = 0;

    /// Starts moving or resizing the window interactively while the user holds a mouse button down
    /// on it. Has no effect when the button has already been released.
    virtual void startMove() = 0;
    virtual void startResize(Qt::Edges edges) = 0;

Q_SIGNALS:
    void becameKey();
    void resignedKey();
    /// The user has moved or resized the window.
    void frameChangedByUser(const QRectF& frame);
    void compositedChanged(bool composited);

protected:
    using QObject::QObject;
};

/// Creates floating surfaces from toolkit windows. Main thread only.
class FloatingSurfaceFactory
{
public:
    FloatingSurfaceFactory() = default;
    Q_DISABLE_COPY_MOVE(FloatingSurfaceFactory)
    virtual ~FloatingSurfaceFactory() = default;

    /// Turns `window`, which must be created but never shown, into a floating surface of `role`.
    /// The window is not owned and must outlive the surface.
    [[nodiscard]] virtual std::unique_ptr<FloatingSurface> adopt(QWindow& window,
                                                                 FloatingSurface::Role role) = 0;
};

} // namespace driftbox
