#pragma once

#include <QtWidgets/QScrollArea>

class QVBoxLayout;

namespace driftbox {

class OverlayScrollBar;

/// A settings page: sections in a column, scrolled when they do not fit.
class FormPage : public QScrollArea
{
    Q_OBJECT

public:
    explicit FormPage(QWidget* parent);

protected:
    /// The page's column, as wide as the page allows.
    [[nodiscard]] QVBoxLayout& column() const { return *m_column; }
    /// The parent of the column's widgets.
    [[nodiscard]] QWidget* content() const { return widget(); }

    void resizeEvent(QResizeEvent* event) override;

private:
    QVBoxLayout* m_column = nullptr;
    OverlayScrollBar* m_scrollBar;
};

} // namespace driftbox
