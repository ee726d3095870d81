#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QCheckBox>

namespace driftbox {

/// A form row with a label and, on the right, a switch, toggled by a click anywhere in the row.
/// Assistive technology sees a check box with that label.
class ToggleRow final : public QCheckBox
{
    Q_OBJECT

public:
    ToggleRow(const QString& label, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void animateKnob(bool on);
    [[nodiscard]] QRectF track() const;
    void paintSwitch(QPainter& painter) const;

    QVariantAnimation m_knob; ///< 0 is off, 1 is on
};

} // namespace driftbox
