#include "ui/controls/SearchBar.h"

#include "ui/controls/SymbolButton.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <utility>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int searchBarBarHeight = 44;
constexpr int searchBarSidePadding = 14;
constexpr int searchBarSymbolSize = 14;
constexpr int searchBarSymbolSpacing = 8;

} // namespace

SearchBar::SearchBar(const QString& placeholder, const TextExchange& exchange, QWidget* parent)
    : QWidget(parent)
    , m_field(new SearchField(placeholder, exchange, this))
    , m_clearButton(new SymbolButton(u"xmark.circle.fill"_s, u"Clear search"_s, this))
{
    setFixedHeight(searchBarBarHeight);
    setFocusProxy(m_field);
    QSizePolicy policy = m_clearButton->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_clearButton->setSizePolicy(policy);
    m_clearButton->hide();

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(searchBarSidePadding + Symbols::extent(searchBarSymbolSize) +
                                searchBarSymbolSpacing,
                            0, searchBarSidePadding - SymbolButton::padding, 0);
    row->setSpacing(searchBarSymbolSpacing);
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

// Not `textEdited`, because assistive technology sets the text without typing.
void SearchBar::handleTextChanged(const QString& text)
{
    m_clearButton->setVisible(!text.isEmpty());
    if (std::exchange(m_query, text) != text)
        Q_EMIT queryEdited(text);
}

void SearchBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect symbol(searchBarSidePadding, 0, Symbols::extent(searchBarSymbolSize), height());
    Symbols::paint(painter, symbol, u"magnifyingglass"_s,
                   {.size = searchBarSymbolSize, .color = Theme::secondary()});
}

// A click anywhere in the bar focuses the field.
void SearchBar::mousePressEvent(QMouseEvent* event)
{
    m_field->setFocus(Qt::MouseFocusReason);
    event->accept();
}

} // namespace driftbox
