#pragma once

#include <QtWidgets/QAbstractButton>

namespace driftbox {

/// A plain button: a symbol and, where there is one, a label behind it. Clicking it does not take
/// the typing away from where it goes.
class SymbolButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// Around what is drawn.
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
