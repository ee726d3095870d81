#include "panel/view/SearchBar.h"

#include "panel/view/SymbolButton.h"
#include "panel/view/Symbols.h"
#include "panel/view/Theme.h"

#include <utility>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int barHeight = 44;
constexpr int sidePadding = 14;
constexpr int symbolSize = 14;
constexpr int symbolSpacing = 8;

} // namespace

SearchBar::SearchBar(const QString& placeholder, const TextExchange& exchange, QWidget* parent)
    : QWidget(parent)
    , m_field(new SearchField(placeholder, exchange, this))
    , m_clearButton(new SymbolButton(u"xmark.circle.fill"_s, u"Clear search"_s, this))
{
    setFixedHeight(barHeight);
    setFocusProxy(m_field);
    QSizePolicy keepsItsPlace = m_clearButton->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_clearButton->setSizePolicy(keepsItsPlace);
    m_clearButton->hide();

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sidePadding + Symbols::extent(symbolSize) + symbolSpacing, 0,
                            sidePadding - SymbolButton::padding, 0);
    row->setSpacing(symbolSpacing);
    row->addWidget(m_field, 1);
    row->addWidget(m_clearButton);

    connect(m_field, &QLineEdit::textChanged, this, &SearchBar::handleTextChanged);
    connect(m_clearButton, &QAbstractButton::clicked, m_field, &QLineEdit::clear);
}

void SearchBar::addButton(SymbolButton* button)
{
    layout()->addWidget(button);
}

void SearchBar::setQuery(const QString& query)
{
    m_query = query;
    if (m_field->text() != query)
        m_field->setText(query);
}

// Not only what is typed: assistive technology sets the text.
void SearchBar::handleTextChanged(const QString& text)
{
    m_clearButton->setVisible(!text.isEmpty());
    if (std::exchange(m_query, text) != text)
        Q_EMIT queryEdited(text);
}

void SearchBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect symbol(sidePadding, 0, Symbols::extent(symbolSize), height());
    Symbols::paint(painter, symbol, u"magnifyingglass"_s,
                   {.size = symbolSize, .color = Theme::secondary()});
}

// All of the bar is the field to whoever aims at it.
void SearchBar::mousePressEvent(QMouseEvent* event)
{
    m_field->setFocus(Qt::MouseFocusReason);
    event->accept();
}

} // namespace driftbox
