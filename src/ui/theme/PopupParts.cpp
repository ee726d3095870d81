#include "ui/theme/PopupParts.h"

#include "ui/theme/CardShape.h"
#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtCore/QEvent>
#include <QtGui/QBitmap>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

namespace driftbox::PopupParts {

namespace {

constexpr qreal popupPartsCornerRadius = 8.0;
constexpr qreal entryRadius = 5.0;
constexpr int entryHeight = 28;
constexpr int separatorHeight = 9;
constexpr int popupPartsSidePadding = 10;
constexpr int iconSide = 16;
constexpr int iconSpacing = 8;
constexpr int shortcutSpacing = 24;
constexpr qreal shortcutOpacity = 0.6;
constexpr qreal popupPartsOutlineOpacity = 0.2;

QBitmap roundMask(const QSize& size)
{
    QBitmap mask(size);
    mask.clear();
    QPainter painter(&mask);
    painter.fillPath(continuousRoundedRect(QRect({}, size), popupPartsCornerRadius), Qt::color1);
    return mask;
}

/// Updates the mask for rounded corners when the popup is resized, and paints the background of a
/// combo box list, which has no style primitive for it.
class PopupFilter final : public QObject
{
public:
    explicit PopupFilter(QWidget& popup)
        : QObject(&popup)
        , m_isMenu(qobject_cast<QMenu*>(&popup) != nullptr)
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto& popup = *static_cast<QWidget*>(watched);
        if (event->type() == QEvent::Resize)
            popup.setMask(roundMask(popup.size()));
        if (event->type() != QEvent::Paint || m_isMenu)
            return false;
        QPainter painter(&popup);
        drawPanel(painter, popup.rect(), popup.palette());
        return true;
    }

private:
    bool m_isMenu;
};

void drawSeparator(QPainter& painter, const QRect& frame)
{
    painter.fillRect(QRect(frame.left() + popupPartsSidePadding, frame.center().y(),
                           frame.width() - 2 * popupPartsSidePadding, 1),
                     Theme::divider());
}

// The icon, tinted with the text color on a selected entry.
QPixmap pictureOf(const QIcon& icon, qreal ratio, const QColor* tint)
{
    QPixmap picture = icon.pixmap(QSize(iconSide, iconSide), ratio);
    if (tint) {
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), *tint);
    }
    return picture;
}

} // namespace

void adopt(QWidget& popup)
{
    constexpr auto filterProperty = "driftboxPopup";
    if (popup.property(filterProperty).toBool())
        return;
    popup.setProperty(filterProperty, true);
    popup.installEventFilter(new PopupFilter(popup));
    if (!qobject_cast<QMenu*>(&popup))
        popup.setContentsMargins(1, 1, 1, 1); // for the outline
}

void drawPanel(QPainter& painter, const QRect& frame, const QPalette& palette)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(frame, palette.color(QPalette::Window));
    painter.setPen(
        Theme::withOpacity(palette.color(QPalette::WindowText), popupPartsOutlineOpacity));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(continuousRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5),
                                           popupPartsCornerRadius - 0.5));
}

void drawEntry(QPainter& painter, const QStyleOptionMenuItem& entry, Icons icons)
{
    const int inset = icons == Icons::some ? 0 : margin; // a combo box list has no margin
    const QRect frame = entry.rect.adjusted(inset, 0, -inset, 0);
    if (entry.menuItemType == QStyleOptionMenuItem::Separator)
        return drawSeparator(painter, frame);

    const bool isEnabled = entry.state & QStyle::State_Enabled;
    const bool isSelected = isEnabled && entry.state & QStyle::State_Selected;
    if (isSelected)
        painter.fillPath(continuousRoundedRect(frame, entryRadius),
                         entry.palette.color(QPalette::Active, QPalette::Highlight));
    const QColor color = isSelected
                             ? entry.palette.color(QPalette::Active, QPalette::HighlightedText)
                         : isEnabled ? Theme::primary()
                                     : Theme::secondary();
    QRect inside = entry.rect.adjusted(popupPartsSidePadding, 0, -popupPartsSidePadding, 0);
    if (icons == Icons::some) {
        const QPixmap picture = pictureOf(entry.icon, painter.device()->devicePixelRatio(),
                                          isSelected ? &color : nullptr);
        painter.drawPixmap(QPoint(inside.left(), frame.center().y() + 1 - iconSide / 2), picture);
        inside.setLeft(inside.left() + iconSide + iconSpacing);
    }
    const qsizetype tab = entry.text.indexOf(u'\t');
    painter.setFont(entry.font);
    painter.setPen(color);
    painter.drawText(inside, Qt::AlignVCenter | Qt::TextHideMnemonic, entry.text.left(tab));
    if (tab >= 0) {
        painter.setPen(Theme::withOpacity(color, shortcutOpacity));
        painter.drawText(inside, Qt::AlignVCenter | Qt::AlignRight, entry.text.mid(tab + 1));
    }
}

QSize entrySize(const QStyleOptionMenuItem& entry, QSize size, Icons icons)
{
    if (entry.menuItemType == QStyleOptionMenuItem::Separator)
        return {size.width(), separatorHeight};
    const QFontMetrics metrics(entry.font);
    const qsizetype tab = entry.text.indexOf(u'\t');
    int width = 2 * popupPartsSidePadding +
                metrics.size(Qt::TextHideMnemonic, entry.text.left(tab)).width();
    if (icons == Icons::some)
        width += iconSide + iconSpacing;
    if (tab >= 0)
        width += shortcutSpacing; // QMenu adds the width of the widest shortcut
    return {width, std::max(entryHeight, metrics.height() + 8)};
}

} // namespace driftbox::PopupParts
