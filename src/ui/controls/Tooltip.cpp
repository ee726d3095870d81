#include "ui/controls/Tooltip.h"

#include "ui/theme/Theme.h"

#include <algorithm>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QPainter>

namespace driftbox {

namespace {

constexpr int gap = 4;               // to what it explains
constexpr int horizontalPadding = 8; // around the text
constexpr int verticalPadding = 5;
constexpr int maximumTextWidth = 280;
constexpr qreal tooltipCornerRadius = 6.0;
constexpr int tooltipTextFlags = Qt::AlignCenter | Qt::TextWordWrap;

QFont textFont()
{
    return Theme::Font::rowMeta();
}

Tooltip* tooltipOf(const QWidget& window)
{
    return window.findChild<Tooltip*>({}, Qt::FindDirectChildrenOnly);
}

/// Shows and hides the tooltip of the widget that is its parent.
class TooltipTrigger final : public QObject
{
public:
    explicit TooltipTrigger(QWidget& widget)
        : QObject(&widget)
        , m_widget(widget)
    {
        widget.installEventFilter(this);
    }

    /// The one of `widget`, made if there is none yet.
    static TooltipTrigger& of(QWidget& widget)
    {
        for (QObject* child : widget.children()) {
            if (auto* trigger = dynamic_cast<TooltipTrigger*>(child))
                return *trigger;
        }
        return *new TooltipTrigger(widget);
    }

    void setSide(Tooltip::Side side) { m_side = side; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ToolTip:
            showTooltip();
            return true;
        case QEvent::Leave:
        case QEvent::Hide:
            Tooltip::dismiss(*m_widget.window());
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void showTooltip() const
    {
        QWidget& window = *m_widget.window();
        const QRect anchor(m_widget.mapTo(&window, QPoint()), m_widget.size());
        Tooltip::present(window, anchor, m_widget.toolTip(), m_side);
    }

    QWidget& m_widget;
    Tooltip::Side m_side = Tooltip::Side::below;
};

} // namespace

Tooltip::Tooltip(QWidget& window)
    : QWidget(&window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void Tooltip::present(QWidget& window, const QRect& anchor, const QString& text, Side side)
{
    if (text.isEmpty())
        return dismiss(window);
    Tooltip* tooltip = tooltipOf(window);
    if (!tooltip)
        tooltip = new Tooltip(window);
    tooltip->m_text = text;
    tooltip->place(anchor, side);
    tooltip->setVisible(true);
    tooltip->raise();
    tooltip->update();
}

void Tooltip::dismiss(const QWidget& window)
{
    if (Tooltip* tooltip = tooltipOf(window))
        tooltip->setVisible(false);
}

QString Tooltip::shownText(const QWidget& window)
{
    const Tooltip* tooltip = tooltipOf(window);
    return tooltip && tooltip->isVisible() ? tooltip->m_text : QString();
}

bool Tooltip::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::WindowDeactivate:
        setVisible(false);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// The application's events are looked at only while there is something to dismiss.
void Tooltip::showEvent(QShowEvent*)
{
    QCoreApplication::instance()->installEventFilter(this);
}
void Tooltip::hideEvent(QHideEvent*)
{
    QCoreApplication::instance()->removeEventFilter(this);
}

void Tooltip::place(const QRect& anchor, Side side)
{
    const QRect space = parentWidget()->contentsRect().adjusted(gap, gap, -gap, -gap);
    const int textWidth = std::min(maximumTextWidth, space.width() - 2 * horizontalPadding);
    const QRect text =
        QFontMetrics(textFont())
            .boundingRect(QRect(0, 0, textWidth, space.height()), tooltipTextFlags, m_text);
    QRect frame({}, text.size() + 2 * QSize(horizontalPadding, verticalPadding));
    if (side == Side::right) {
        frame.moveTopLeft({anchor.right() + 1 + gap, anchor.center().y() - frame.height() / 2});
        if (frame.right() > space.right())
            frame.moveRight(anchor.left() - 1 - gap);
    } else {
        frame.moveTopLeft({anchor.center().x() - frame.width() / 2, anchor.bottom() + 1 + gap});
        if (frame.bottom() > space.bottom())
            frame.moveBottom(anchor.top() - 1 - gap);
    }
    frame.moveRight(std::min(frame.right(), space.right()));
    frame.moveBottom(std::min(frame.bottom(), space.bottom()));
    frame.moveLeft(std::max(frame.left(), space.left()));
    frame.moveTop(std::max(frame.top(), space.top()));
    setGeometry(frame);
}

void Tooltip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme::divider());
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), tooltipCornerRadius,
                            tooltipCornerRadius);
    painter.setFont(textFont());
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(
        rect().adjusted(horizontalPadding, verticalPadding, -horizontalPadding, -verticalPadding),
        tooltipTextFlags, m_text);
}

void setTooltip(QWidget& widget, const QString& text, Tooltip::Side side)
{
    widget.setToolTip(text);
    TooltipTrigger::of(widget).setSide(side);
}

} // namespace driftbox
