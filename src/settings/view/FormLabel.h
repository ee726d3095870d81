#pragma once

#include <optional>

#include <QtWidgets/QLabel>

namespace driftbox {

/// Text in the colors of the theme, which it follows. Long text is wrapped.
class FormLabel final : public QLabel
{
    Q_OBJECT

public:
    enum class Tone { primary, secondary };

    FormLabel(const QString& text, const QFont& font, Tone tone, QWidget* parent);

    /// Digits take the same room each, and the label a column of its own, so that a number that
    /// changes does not jump. Text that needs more makes the column wider.
    void setDigitsOfFixedWidth(int column);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int widthOf(QChar character) const;
    void paintWithFixedDigits(QPainter& painter) const;

    Tone m_tone;
    std::optional<int> m_digitsColumn;
};

} // namespace driftbox
