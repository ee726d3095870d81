#pragma once

#include "ui/controls/TextExchange.h"

#include <QtWidgets/QLineEdit>

namespace driftbox {

/// A line of text without a frame. It reaches the pasteboard only through the program, never
/// through the toolkit, and opens no menu.
class SearchField final : public QLineEdit
{
    Q_OBJECT

public:
    /// `placeholder` is the accessible name too.
    SearchField(const QString& placeholder, TextExchange exchange, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void copySelection();

    TextExchange m_exchange;
};

} // namespace driftbox
