#pragma once

#include "core/NoteColor.h"
#include "ui/theme/Symbols.h"

#include <QtWidgets/QAbstractButton>

namespace driftbox {

/// A button on a note. A click does not take the focus away from the text.
class NoteButton : public QAbstractButton
{
    Q_OBJECT

public:
    [[nodiscard]] QSize sizeHint() const final { return minimumSize(); }

protected:
    explicit NoteButton(QWidget* parent);

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

    void paintHoverAndFocus(QPainter& painter) const;
};

/// A note button that shows a symbol.
class NoteSymbolButton final : public NoteButton
{
    Q_OBJECT

public:
    NoteSymbolButton(QWidget* parent, int symbolSize = 13,
                     Symbols::Weight weight = Symbols::Weight::regular);

    /// `help` is the tooltip and the accessible name.
    void setContent(const QString& systemImage, const QString& help);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_systemImage;
    int m_symbolSize;
    Symbols::Weight m_weight;
};

/// A note button for one of the note colors, checked if the note has that color. A click does not
/// change the checked state by itself.
class NoteSwatchButton final : public NoteButton
{
    Q_OBJECT

public:
    NoteSwatchButton(NoteColor color, QWidget* parent);

    [[nodiscard]] NoteColor color() const { return m_color; }

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;

private:
    NoteColor m_color;
};

} // namespace driftbox
