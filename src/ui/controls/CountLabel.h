#pragma once

#include <QtWidgets/QLabel>

namespace driftbox {

/// A count in the footer of a page. Follows changes of the theme's colors.
class CountLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit CountLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace driftbox
