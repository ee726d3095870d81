#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace driftbox {

/// The help of something in a window, drawn within that window because a window of its own could
/// not be placed everywhere. There is at most one a window; it takes no clicks and goes with the
/// next click, key press or turn of the wheel, wherever that happens.
class Tooltip final : public QWidget
{
    Q_OBJECT

public:
    enum class Side { below, right };

    /// Shows `text` beside `anchor`, in the coordinates of `window`, on the other side where there
    /// is no room, and always within the window's contents rectangle.
    static void present(QWidget& window, const QRect& anchor, const QString& text,
                        Side side = Side::below);
    static void dismiss(const QWidget& window);

    /// The text on show in `window`; empty when there is none.
    [[nodiscard]] static QString shownText(const QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    explicit Tooltip(QWidget& window);

    void place(const QRect& anchor, Side side);

    QString m_text;
};

/// Shows `text` in a tooltip while the pointer rests on `widget`; assistive technology describes
/// the widget by it. Calling it again replaces text and side.
void setTooltip(QWidget& widget, const QString& text, Tooltip::Side side = Tooltip::Side::below);

} // namespace driftbox
