#include "ui/controls/SearchField.h"

#include "ui/theme/Theme.h"

#include <QtGui/QKeyEvent>

namespace driftbox {

SearchField::SearchField(const QString& placeholder, TextExchange exchange, QWidget* parent)
    : QLineEdit(parent)
    , m_exchange(std::move(exchange))
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setFont(Theme::Font::search());
    setFrame(false);
    setTextMargins({});
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAcceptDrops(false);
    QPalette transparent;
    transparent.setBrush(QPalette::Base, Qt::transparent);
    setPalette(transparent);
}

void SearchField::copySelection()
{
    if (hasSelectedText())
        m_exchange.copyText(selectedText());
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (event->matches(QKeySequence::Cut)) {
        copySelection();
        if (hasSelectedText())
            del();
    } else if (event->matches(QKeySequence::Paste)) {
        insert(m_exchange.pasteboardText());
    } else {
        return QLineEdit::keyPressEvent(event);
    }
    event->accept();
}

void SearchField::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        QLineEdit::mousePressEvent(event);
}

// The base class would copy to the primary selection, or paste from it.
void SearchField::mouseReleaseEvent(QMouseEvent*)
{
}

} // namespace driftbox
