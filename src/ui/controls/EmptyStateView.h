#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace driftbox {

/// A centered placeholder for an empty area: a symbol, a title and an optional description. Its
/// accessible name is the text.
class EmptyStateView final : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyStateView(QWidget* parent = nullptr);

    void setContent(const QString& systemImage, const QString& title,
                    const QString& description = {});

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_systemImage;
    QString m_title;
    QString m_description;
};

} // namespace driftbox
