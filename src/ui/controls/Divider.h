#pragma once

#include <QtWidgets/QWidget>

namespace driftbox {

/// A thin line between two parts of a view.
class Divider final : public QWidget
{
    Q_OBJECT

public:
    explicit Divider(Qt::Orientation orientation, QWidget* parent = nullptr, qreal opacity = 1.0);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    qreal m_opacity;
};

} // namespace driftbox
