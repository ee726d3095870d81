#pragma once

#include "platform/FloatingSurface.h"
#include "settings/view/SettingsRootView.h"
#include "ui/theme/CardShape.h"
#include "ui/window/DragStart.h"

#include <memory>

#include <QtWidgets/QWidget>

namespace driftbox {

/// The settings window. It draws its own frame, so that its columns extend to the top edge; closing
/// it only hides it.
class SettingsWindow final : public QWidget
{
    Q_OBJECT

public:
    /// Creates the window without showing it. `surfaces` and the references in `services` must
    /// outlive it.
    SettingsWindow(FloatingSurfaceFactory& surfaces, const SettingsServices& services,
                   const TextExchange& exchange);
    ~SettingsWindow() override;

    [[nodiscard]] FloatingSurface& surface() { return *m_surface; }
    [[nodiscard]] SettingsRootView& rootView() { return *m_rootView; }

    /// The initial size of the window including its shadow, in points.
    [[nodiscard]] static QSizeF initialSize();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool fillsScreen() const;
    [[nodiscard]] QRect card() const;
    [[nodiscard]] QPainterPath cardPath() const;
    [[nodiscard]] Qt::Edges edgesAt(const QPoint& position) const;
    void fitFrame();
    void showCursorFor(Qt::Edges edges);

    SettingsRootView* m_rootView;
    std::unique_ptr<FloatingSurface> m_surface;
    CardShadow m_shadow;
    DragStart m_drag;
};

} // namespace driftbox
