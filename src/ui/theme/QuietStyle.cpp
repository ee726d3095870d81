#include "ui/theme/QuietStyle.h"

#include "ui/theme/ControlParts.h"
#include "ui/theme/PopupParts.h"

#include <algorithm>

#include <QtGui/QPainter>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleOption>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int scrollBarExtent = 12;
constexpr int thumbInset = 3;
constexpr int quietStyleMinThumb = 28;
constexpr int indicatorSize = 16;
constexpr qreal grooveThickness = 4.0;
constexpr int buttonMargin = 10;
constexpr int fieldPadding = 4; // between the outline of a field and its text

/// Enables antialiasing and restores the painter's state when destroyed.
class AntialiasedPainting
{
public:
    explicit AntialiasedPainting(QPainter& painter)
        : m_painter(painter)
    {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
    }
    ~AntialiasedPainting() { m_painter.restore(); }
    Q_DISABLE_COPY_MOVE(AntialiasedPainting)

private:
    QPainter& m_painter;
};

// The background of a scroll bar is that of the viewport it scrolls.
void drawScrolledBackground(QPainter& painter, const QRect& frame, const QWidget* bar)
{
    const QWidget* container = bar ? bar->parentWidget() : nullptr;
    const auto* area =
        container ? qobject_cast<QAbstractScrollArea*>(container->parentWidget()) : nullptr;
    const QWidget* viewport = area ? area->viewport() : nullptr;
    if (viewport && viewport->autoFillBackground())
        painter.fillRect(frame, viewport->palette().brush(viewport->backgroundRole()));
}

// Combo boxes reserve space for icons even if there are none.
PopupParts::Icons iconsOf(const QStyleOptionMenuItem& entry, const QWidget* widget)
{
    return entry.maxIconWidth > 0 && qobject_cast<const QMenu*>(widget) ? PopupParts::Icons::some
                                                                        : PopupParts::Icons::none;
}

// Hovering and pressing apply only to the active part of a control.
QStyle::State stateOfPart(const QStyleOptionComplex& option, QStyle::SubControl part)
{
    QStyle::State state = option.state;
    if (!(option.activeSubControls & part))
        state &= ~(QStyle::State_MouseOver | QStyle::State_Sunken);
    return state;
}

} // namespace

QuietStyle::QuietStyle()
    : QProxyStyle(u"Fusion"_s)
{
}

void QuietStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    // Only the thumb is painted, over whatever is below the scroll bar.
    if (qobject_cast<QScrollBar*>(widget))
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    if (qobject_cast<QMenu*>(widget) || widget->inherits("QComboBoxPrivateContainer"))
        PopupParts::adopt(*widget);
}

int QuietStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return quietStyleMinThumb;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return indicatorSize;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return PopupParts::margin;
    case PM_MenuPanelWidth:
        return 1;
    case PM_ButtonMargin:
        return buttonMargin;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int QuietStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 1;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize QuietStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const
{
    const QSize common = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    return type == CT_MenuItem && entry
               ? PopupParts::entrySize(*entry, common, iconsOf(*entry, widget))
               : common;
}

QRect QuietStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const
{
    const QRect rectangle = QProxyStyle::subElementRect(element, option, widget);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == SE_LineEditContents && frame && frame->lineWidth > 0)
        return rectangle.adjusted(fieldPadding, 0, -fieldPadding, 0);
    return rectangle;
}

QRect QuietStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl subControl, const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, subControl, widget);

    const bool isHorizontal = bar->orientation == Qt::Horizontal;
    const int length = isHorizontal ? bar->rect.width() : bar->rect.height();
    const qint64 contentLength = qint64(bar->maximum) - bar->minimum + bar->pageStep;
    const qint64 thumbLength = length * qint64(bar->pageStep) / std::max<qint64>(contentLength, 1);
    const int thumb = static_cast<int>(
        std::clamp<qint64>(thumbLength, std::min(quietStyleMinThumb, length), length));
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                              length - thumb, bar->upsideDown);
    const auto stretch = [&](int from, int to) {
        const QRect logical = isHorizontal ? QRect(from, 0, to - from, bar->rect.height())
                                           : QRect(0, from, bar->rect.width(), to - from);
        return visualRect(bar->direction, bar->rect, logical.translated(bar->rect.topLeft()));
    };
    switch (subControl) {
    case SC_ScrollBarSlider:
        return stretch(start, start + thumb);
    case SC_ScrollBarSubPage:
        return stretch(0, start);
    case SC_ScrollBarAddPage:
        return stretch(start + thumb, length);
    case SC_ScrollBarGroove:
        return bar->rect;
    default:
        return {};
    }
}

void QuietStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const
{
    const AntialiasedPainting smooth(*painter);
    switch (element) {
    case PE_PanelButtonCommand:
        ControlParts::drawButton(*painter, option->rect, option->palette, option->state);
        break;
    case PE_FrameLineEdit:
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame && frame->lineWidth == 0 && element == PE_PanelLineEdit)
            painter->fillRect(option->rect, option->palette.base());
        else
            ControlParts::drawField(*painter, option->rect, option->palette, option->state);
        break;
    }
    case PE_IndicatorCheckBox:
        ControlParts::drawCheckBox(*painter, option->rect, option->palette, option->state);
        break;
    case PE_IndicatorRadioButton:
        ControlParts::drawRadioButton(*painter, option->rect, option->palette, option->state);
        break;
    case PE_PanelMenu:
        PopupParts::drawPanel(*painter, option->rect, option->palette);
        break;
    case PE_FrameMenu:      // painted with the panel
    case PE_FrameFocusRect: // controls show the focus by their outline
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void QuietStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && entry) {
        const AntialiasedPainting smooth(*painter);
        PopupParts::drawEntry(*painter, *entry, iconsOf(*entry, widget));
    } else if (element == CE_PushButtonBevel)
        proxy()->drawPrimitive(PE_PanelButtonCommand, option, painter, widget);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

void QuietStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const
{
    const AntialiasedPainting smooth(*painter);
    switch (control) {
    case CC_ScrollBar:
        drawScrollBar(*option, *painter, widget);
        break;
    case CC_Slider:
        drawSlider(*option, *painter, widget);
        break;
    case CC_ComboBox:
        drawComboBox(*option, *painter, widget);
        break;
    case CC_SpinBox:
        drawSpinBox(*option, *painter, widget);
        break;
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

void QuietStyle::drawScrollBar(const QStyleOptionComplex& option, QPainter& painter,
                               const QWidget* widget) const
{
    drawScrolledBackground(painter, option.rect, widget);
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!bar || bar->maximum <= bar->minimum)
        return;
    const QRectF thumb = proxy()->subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, widget);
    ControlParts::drawThumb(painter,
                            thumb.adjusted(thumbInset, thumbInset, -thumbInset, -thumbInset),
                            option.palette, stateOfPart(option, SC_ScrollBarSlider));
}

void QuietStyle::drawSlider(const QStyleOptionComplex& option, QPainter& painter,
                            const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider)
        return;
    const QRectF handle = proxy()->subControlRect(CC_Slider, &option, SC_SliderHandle, widget);
    const QPointF knob = handle.center();
    QRectF groove = proxy()->subControlRect(CC_Slider, &option, SC_SliderGroove, widget);
    QRectF filled;
    const bool fromEnd = slider->upsideDown;
    if (slider->orientation == Qt::Horizontal) {
        groove = QRectF(groove.left(), knob.y() - grooveThickness / 2.0, groove.width(),
                        grooveThickness);
        filled = groove;
        fromEnd ? filled.setLeft(knob.x()) : filled.setRight(knob.x());
    } else {
        groove = QRectF(knob.x() - grooveThickness / 2.0, groove.top(), grooveThickness,
                        groove.height());
        filled = groove;
        fromEnd ? filled.setTop(knob.y()) : filled.setBottom(knob.y());
    }
    ControlParts::drawGroove(painter, groove, filled, option.palette, option.state);
    ControlParts::drawKnob(painter, knob, option.palette, option.state);
}

void QuietStyle::drawComboBox(const QStyleOptionComplex& option, QPainter& painter,
                              const QWidget* widget) const
{
    ControlParts::drawButton(painter, option.rect, option.palette, option.state);
    const QRectF arrow = proxy()->subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget);
    ControlParts::drawChevron(painter, arrow, Qt::DownArrow, option.palette, option.state);
}

void QuietStyle::drawSpinBox(const QStyleOptionComplex& option, QPainter& painter,
                             const QWidget* widget) const
{
    ControlParts::drawField(painter, option.rect, option.palette, option.state);
    const auto* box = qstyleoption_cast<const QStyleOptionSpinBox*>(&option);
    if (!box || box->buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    const auto drawStep = [&](SubControl part, QAbstractSpinBox::StepEnabledFlag flag,
                              Qt::ArrowType direction) {
        State state = stateOfPart(option, part);
        state.setFlag(State_Enabled, box->stepEnabled & flag && option.state & State_Enabled);
        ControlParts::drawChevron(painter,
                                  proxy()->subControlRect(CC_SpinBox, &option, part, widget),
                                  direction, option.palette, state);
    };
    drawStep(SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, Qt::UpArrow);
    drawStep(SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, Qt::DownArrow);
}

} // namespace driftbox
