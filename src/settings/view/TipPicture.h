#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QLabel>

namespace driftbox {

/// The picture of that name from the program's resources; null when there is none.
[[nodiscard]] QImage bundledImage(const QString& name);

/// A payment code with its caption. A placeholder replaces a missing picture.
class TipPicture final : public QLabel
{
    Q_OBJECT

public:
    TipPicture(const QString& name, const QString& caption, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
};

} // namespace driftbox
