#pragma once

#include "ui/controls/SearchField.h"

namespace driftbox {

class SymbolButton;

/// The rounded search field above the sidebar, which filters its list. Its focus proxy is the text
/// field.
class SidebarSearchField final : public QWidget
{
    Q_OBJECT

public:
    SidebarSearchField(const QString& prompt, const TextExchange& exchange, QWidget* parent);

    [[nodiscard]] SearchField& field() const { return *m_field; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SearchField* m_field;
    SymbolButton* m_clearButton;
};

} // namespace driftbox
