#pragma once

#include <QtWidgets/QPushButton>

namespace driftbox {

/// A form button with an optional symbol and a label.
class ActionButton final : public QPushButton
{
    Q_OBJECT

public:
    enum class Kind { plain, destructive };

    ActionButton(QString systemImage, const QString& label, Kind kind, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int contentWidth() const;

    QString m_systemImage;
    Kind m_kind;
};

} // namespace driftbox
