#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractButton>

namespace driftbox {

/// A button of the panel's rail, checked while its section is active. A click does not change the
/// checked state by itself.
class RailIconButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `help` is the tooltip and the accessible name.
    RailIconButton(QString systemImage, const QString& help, QWidget* parent);

    [[nodiscard]] bool isActive() const { return isChecked(); }
    void setActive(bool active) { setChecked(active); }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setHovered(bool hovered);

    QString m_systemImage;
    QVariantAnimation m_hover; ///< from 0 (not hovered) to 1 (hovered)
};

} // namespace driftbox
