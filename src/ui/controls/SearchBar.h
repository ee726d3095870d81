#pragma once

#include "ui/controls/SearchField.h"

namespace driftbox {

class SymbolButton;

/// The bar at the top of a page that narrows what the page lists: a magnifying glass, the field,
/// and a button that empties it, there only while it holds something. Gives its focus to the field.
class SearchBar final : public QWidget
{
    Q_OBJECT

public:
    SearchBar(const QString& placeholder, const TextExchange& exchange, QWidget* parent);

    [[nodiscard]] SearchField& field() const { return *m_field; }

    /// Puts a button of the page's behind the field; the bar then owns it.
    void addButton(SymbolButton* button);

    /// Shows a query; the field is left alone when it holds that already.
    void setQuery(const QString& query);

Q_SIGNALS:
    /// The user has changed what the field holds, by whatever means.
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
