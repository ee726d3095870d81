#include "notes/view/NoteControlRow.h"

#include "notes/StickyNoteViewModel.h"
#include "notes/view/NoteButton.h"

#include <algorithm>

#include <QtWidgets/QGraphicsOpacityEffect>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int fadeDurationMs = 150;
constexpr int maxSwatchWidth = 20;
constexpr int maxButtonWidth = 26;
constexpr int plusSize = 12;
constexpr int crossSize = 10;

} // namespace

NoteControlRow::NoteControlRow(StickyNoteViewModel& viewModel, QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
    , m_effect(new QGraphicsOpacityEffect(this))
    , m_animation(new QVariantAnimation(this))
{
    setGraphicsEffect(m_effect);
    addSwatches();
    addButtons();
    showColor();
    showSavedState();
    connect(&viewModel, &StickyNoteViewModel::colorChanged, this, &NoteControlRow::showColor);
    connect(&viewModel, &StickyNoteViewModel::isSavedChanged, this,
            &NoteControlRow::showSavedState);

    m_animation->setStartValue(0.0);
    m_animation->setEndValue(1.0);
    m_animation->setDuration(fadeDurationMs);
    m_animation->setEasingCurve(QEasingCurve::InOutQuad);
    connect(m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { fade(value.toReal()); });
    fade(0.0);
}

void NoteControlRow::addSwatches()
{
    for (const NoteColor color : allNoteColors) {
        auto* swatch = new NoteSwatchButton(color, this);
        connect(swatch, &QAbstractButton::clicked, this,
                [this, color] { m_viewModel.setColor(color); });
        m_swatches.push_back(swatch);
    }
}

void NoteControlRow::addButtons()
{
    m_saveButton = new NoteSymbolButton(this);
    m_saveButton->setCheckable(true);
    connect(m_saveButton, &QAbstractButton::clicked, &m_viewModel,
            &StickyNoteViewModel::toggleSaved);

    auto* copy = new NoteSymbolButton(this);
    copy->setContent(u"doc.on.doc"_s, u"Copy to clipboard"_s);
    connect(copy, &QAbstractButton::clicked, &m_viewModel, &StickyNoteViewModel::copyToClipboard);

    auto* plus = new NoteSymbolButton(this, plusSize, Symbols::Weight::semibold);
    plus->setContent(u"plus"_s, u"New note"_s);
    connect(plus, &QAbstractButton::clicked, &m_viewModel, &StickyNoteViewModel::newNote);

    auto* cross = new NoteSymbolButton(this, crossSize, Symbols::Weight::bold);
    cross->setContent(u"xmark"_s, u"Delete note"_s);
    connect(cross, &QAbstractButton::clicked, &m_viewModel, &StickyNoteViewModel::close);

    m_buttons = {m_saveButton, copy, plus, cross};
}

void NoteControlRow::showColor()
{
    for (NoteSwatchButton* swatch : m_swatches)
        swatch->setChecked(swatch->color() == m_viewModel.color());
}

void NoteControlRow::showSavedState()
{
    const bool isSaved = m_viewModel.isSaved();
    m_saveButton->setChecked(isSaved);
    m_saveButton->setContent(isSaved ? u"bookmark.fill"_s : u"bookmark"_s,
                             isSaved ? u"Unsave — note becomes a draft (deleted on close)"_s
                                     : u"Save"_s);
}

void NoteControlRow::setPresent(bool present)
{
    m_animation->setDirection(present ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (m_animation->state() != QAbstractAnimation::Running)
        m_animation->start();
}

void NoteControlRow::fade(qreal opacity)
{
    m_effect->setOpacity(opacity);
    m_effect->setEnabled(opacity < 1.0); // renders the row to a pixmap
    setVisible(opacity > 0.0);
}

void NoteControlRow::resizeEvent(QResizeEvent*)
{
    const int count = static_cast<int>(m_swatches.size() + m_buttons.size());
    const int share = width() / count;
    const int swatch = std::clamp(share, 1, maxSwatchWidth);
    const int button = std::clamp(share, 1, maxButtonWidth);
    int left = 0;
    for (NoteSwatchButton* control : m_swatches) {
        control->setGeometry(left, 0, swatch, height());
        left += swatch;
    }
    left = width() - button * static_cast<int>(m_buttons.size());
    for (NoteButton* control : m_buttons) {
        control->setGeometry(left, 0, button, height());
        left += button;
    }
}

} // namespace driftbox
