#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QCheckBox>

namespace driftbox {

/// A row of a form that is switched on and off by a click anywhere on it: its label, and at the
/// right a switch. For assistive technology it is a check box of that name.
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
    void slide(bool on);
    [[nodiscard]] QRectF track() const;
    void paintSwitch(QPainter& painter) const;

    QVariantAnimation m_knob; ///< 0 is off, 1 is on
};

} // namespace driftbox
