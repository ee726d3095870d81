#pragma once

#include "ui/controls/TextExchange.h"

#include <QtWidgets/QLineEdit>

namespace driftbox {

/// A frameless line edit. It accesses the pasteboard only through the program, never through Qt,
/// and has no context menu.
class SearchField final : public QLineEdit
{
    Q_OBJECT

public:
    /// `placeholder` is also the accessible name.
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
