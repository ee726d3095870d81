#pragma once

#include <QtWidgets/QLabel>

namespace driftbox {

/// A count at the bottom of a page, in the color that the theme has at the moment.
class CountLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit CountLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace driftbox
