#include "settings/view/SidebarSearchField.h"

#include "ui/controls/SymbolButton.h"
#include "ui/theme/ControlParts.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int fieldHeight = 30;
constexpr int sidebarSearchFieldPadding = 9;
constexpr int sidebarSearchFieldSymbolSize = 12;
constexpr int sidebarSearchFieldSymbolSpacing = 7;

} // namespace

SidebarSearchField::SidebarSearchField(const QString& prompt, const TextExchange& exchange,
                                       QWidget* parent)
    : QWidget(parent)
    , m_field(new SearchField(prompt, exchange, this))
    , m_clearButton(new SymbolButton(u"xmark.circle.fill"_s, u"Clear search"_s, this))
{
    setFixedHeight(fieldHeight);
    setFocusProxy(m_field);
    m_field->setFont(Theme::systemFont(13));
    m_field->installEventFilter(this);
    m_clearButton->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sidebarSearchFieldPadding +
                                Symbols::extent(sidebarSearchFieldSymbolSize) +
                                sidebarSearchFieldSymbolSpacing,
                            0, 4, 0);
    row->setSpacing(0);
    row->addWidget(m_field, 1);
    row->addWidget(m_clearButton);
    connect(m_field, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_clearButton->setVisible(!text.isEmpty()); });
    connect(m_clearButton, &QAbstractButton::clicked, m_field, &QLineEdit::clear);
}

void SidebarSearchField::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyle::State state = QStyle::State_Enabled;
    state.setFlag(QStyle::State_HasFocus, m_field->hasFocus());
    ControlParts::drawField(painter, rect(), palette(), state);
    Symbols::paint(painter,
                   QRect(sidebarSearchFieldPadding, 0,
                         Symbols::extent(sidebarSearchFieldSymbolSize), rect().height()),
                   u"magnifyingglass"_s,
                   {.size = sidebarSearchFieldSymbolSize, .color = Theme::secondary()});
}

// Clicks anywhere in the frame focus the text field.
void SidebarSearchField::mousePressEvent(QMouseEvent* event)
{
    m_field->setFocus(Qt::MouseFocusReason);
    event->accept();
}

bool SidebarSearchField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

} // namespace driftbox
