#pragma once

#include <QtWidgets/QScrollArea>

class QVBoxLayout;

namespace driftbox {

class OverlayScrollBar;

/// A page of the settings: sections beneath each other, scrolled where there is no room for all.
class FormPage : public QScrollArea
{
    Q_OBJECT

public:
    explicit FormPage(QWidget* parent);

protected:
    /// What is above each other on the page, as wide as the page allows.
    [[nodiscard]] QVBoxLayout& column() const { return *m_column; }
    /// The parent of what is in the column.
    [[nodiscard]] QWidget* content() const { return widget(); }

    void resizeEvent(QResizeEvent* event) override;

private:
    QVBoxLayout* m_column = nullptr;
    OverlayScrollBar* m_scrollBar;
};

} // namespace driftbox
