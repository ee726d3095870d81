#pragma once

#include <QtWidgets/QLabel>

namespace driftbox {

/// Text in the colors of the theme, which it follows. Long text is wrapped.
class FormLabel final : public QLabel
{
    Q_OBJECT

public:
    enum class Tone { primary, secondary };

    FormLabel(const QString& text, const QFont& font, Tone tone, QWidget* parent);

    /// Digits take the same room each, so that a number that changes does not jump.
    void setDigitsOfFixedWidth() { m_hasFixedDigits = true; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintWithFixedDigits(QPainter& painter) const;

    Tone m_tone;
    bool m_hasFixedDigits = false;
};

} // namespace driftbox
