#pragma once

#include "core/NoteColor.h"

#include <QtWidgets/QRadioButton>

namespace driftbox {

/// A note color to choose: a round swatch, outlined boldly while it is the chosen one. For
/// assistive technology it is a radio button of the color's name.
class SwatchButton final : public QRadioButton
{
    Q_OBJECT

public:
    SwatchButton(NoteColor color, QWidget* parent);

    [[nodiscard]] NoteColor color() const { return m_color; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    NoteColor m_color;
};

} // namespace driftbox
