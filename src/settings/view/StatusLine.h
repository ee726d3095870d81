#pragma once

#include <QtWidgets/QWidget>

namespace driftbox {

class FormLabel;

/// A text with a symbol that shows its status.
class StatusLine final : public QWidget
{
    Q_OBJECT

public:
    enum class Status { good, warning };

    explicit StatusLine(QWidget* parent);

    void setStatus(Status status, const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Status m_status = Status::warning;
    FormLabel* m_text;
};

} // namespace driftbox
