#pragma once

#include <QtWidgets/QAbstractButton>

namespace driftbox {

/// A flat button with a symbol and an optional label. A click does not take the focus.
class SymbolButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// The padding around the content, in points.
    static constexpr int padding = 5;

    /// `help` is the tooltip; without a label it is the accessible name too.
    SymbolButton(QString systemImage, const QString& help, QWidget* parent);

    void setSystemImage(const QString& systemImage);
    /// The label is the accessible name, the help then only describes.
    void setLabel(const QString& label);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_systemImage;
};

} // namespace driftbox
