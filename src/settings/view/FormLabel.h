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

    /// Gives all digits the same width, and the label at least that of `column`, so that a changing
    /// number does not jitter.
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
