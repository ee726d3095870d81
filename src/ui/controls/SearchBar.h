#pragma once

#include "ui/controls/SearchField.h"

namespace driftbox {

class SymbolButton;

/// The search bar at the top of a page: a magnifying glass, the field, and a button that clears the
/// field and is visible only while there is text. The field is its focus proxy.
class SearchBar final : public QWidget
{
    Q_OBJECT

public:
    SearchBar(const QString& placeholder, const TextExchange& exchange, QWidget* parent);

    [[nodiscard]] SearchField& field() const { return *m_field; }

    /// Appends a page-specific button and takes ownership of it.
    void addButton(SymbolButton* button);

    /// Sets the field's text without emitting `queryEdited`.
    void setQuery(const QString& query);

Q_SIGNALS:
    /// The user has changed the text, by any means.
    void queryEdited(const QString& query);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void handleTextChanged(const QString& text);

    QString m_query;
    SearchField* m_field;
    SymbolButton* m_clearButton;
};

} // namespace driftbox
