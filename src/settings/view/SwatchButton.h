#pragma once

#include "core/NoteColor.h"

#include <QtWidgets/QRadioButton>

namespace driftbox {

/// Selects a note color: a round swatch with a bold outline while selected. Assistive technology
/// sees a radio button with the color's name.
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
