#include "notes/view/NoteRow.h"

#include "core/PreviewLines.h"
#include "notes/NoteManager.h"
#include "notes/NotesListModel.h"
#include "ui/list/RowLayout.h"
#include "ui/list/RowPainting.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int maxCachedPreviews = 64;
constexpr int rowSwatchDiameter = 12;
constexpr qreal swatchOutlineOpacity = 0.25;
constexpr int symbolSize = 13;
constexpr int savedMarkSize = 11;
constexpr int swatchSpacing = 8; // to the symbol
constexpr int symbolSpacing = 8; // to the text

enum Button { copyButton, deleteButton, buttonCount };

RowLayout layoutFor(QSize rowSize)
{
    return {rowSize, RowPainting::timeWidth()};
}

} // namespace

NoteRow::NoteRow(const NotesListModel& rows, NoteManager& manager)
    : m_rows(rows)
    , m_manager(manager)
    , m_previews(maxCachedPreviews)
{
}

const StickyNote& NoteRow::noteAt(const QModelIndex& index) const
{
    return m_rows.record(index.row());
}

int NoteRow::heightOfRow(int) const
{
    return RowLayout::textRowHeight + RowLayout::dividerHeight;
}

QString NoteRow::help() const
{
    return u"Click to bring the note to the front"_s;
}

std::vector<RowButton> NoteRow::buttons(const QModelIndex&, QSize rowSize) const
{
    const std::vector<QRect> rects = layoutFor(rowSize).actions(buttonCount);
    return {{.rect = rects[copyButton], .help = u"Copy to clipboard"_s},
            {.rect = rects[deleteButton], .help = u"Delete note"_s}};
}

void NoteRow::pick(const QModelIndex& index)
{
    m_manager.focus(noteAt(index).id);
}

void NoteRow::press(const QModelIndex& index, int button)
{
    const StickyNoteId id = noteAt(index).id;
    if (button == copyButton)
        m_manager.copyToClipboard(id);
    else
        m_manager.remove(id);
}

void NoteRow::paint(QPainter& painter, const QRect& rect, const QModelIndex& index,
                    const RowState& state) const
{
    const StickyNote& note = noteAt(index);
    const RowLayout layout = layoutFor(rect.size());
    painter.save();
    RowPainting::paintBackground(painter, rect, layout, state);
    paintNote(painter, note, layout.content());
    RowPainting::paintTime(painter, layout.time(), index.data(NotesListModel::TimeRole).toString());
    if (note.isSaved)
        Symbols::paint(painter, layout.mark(), u"bookmark.fill"_s,
                       {.size = savedMarkSize, .color = Theme::secondary()});
    if (state.isRevealed())
        paintActions(painter, layout, state);
    painter.restore();
}

void NoteRow::paintNote(QPainter& painter, const StickyNote& note, const QRect& area) const
{
    QRectF swatch(area.left(), 0, rowSwatchDiameter, rowSwatchDiameter);
    swatch.moveCenter({swatch.center().x(), QRectF(area).center().y()});
    painter.setBrush(Theme::noteSwatch(note.color));
    painter.setPen(QPen(Theme::withOpacity(Theme::primary(), swatchOutlineOpacity), 1.0));
    painter.drawEllipse(swatch.adjusted(0.5, 0.5, -0.5, -0.5));

    const bool isImage = note.kind == StickyNote::Kind::image;
    const QRect symbol(area.left() + rowSwatchDiameter + swatchSpacing, area.top(),
                       Symbols::extent(symbolSize), area.height());
    Symbols::paint(painter, symbol, isImage ? u"photo"_s : u"doc.text"_s,
                   {.size = symbolSize, .color = Theme::secondary()});

    const QRect textArea = area.adjusted(symbol.right() + 1 + symbolSpacing - area.left(), 0, 0, 0);
    painter.setPen(Theme::primary());
    preview(note, textArea.width()).paint(painter, textArea);
}

const PreviewText& NoteRow::preview(const StickyNote& note, qreal width) const
{
    const QFont font = Theme::Font::rowTitle();
    const QString text = note.textContent.value_or(QString());
    const Preview* cached = m_previews.object(note.id);
    if (cached && cached->text == text && cached->lines.fits(font, width))
        return cached->lines;
    auto* created = new Preview{text, PreviewText(previewLines(previewText(note)), font, width)};
    m_previews.insert(note.id, created);
    return created->lines;
}

void NoteRow::paintActions(QPainter& painter, const RowLayout& layout, const RowState& state)
{
    const std::vector<QRect> rects = layout.actions(buttonCount);
    const auto paintButton = [&](Button button, const QString& systemImage,
                                 const QColor& activeColor) {
        const bool hasPointer = state.buttonUnderPointer == button;
        RowPainting::paintButton(painter, rects[button], systemImage,
                                 hasPointer ? activeColor : Theme::secondary(), state, button);
    };
    paintButton(copyButton, u"doc.on.doc"_s, Theme::primary());
    paintButton(deleteButton, u"trash"_s, Theme::destructive());
}

} // namespace driftbox
