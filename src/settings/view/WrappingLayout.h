#pragma once

#include <memory>
#include <vector>

#include <QtWidgets/QLayout>

namespace driftbox {

/// Widgets beside each other, each at its own size; those that find no room go on in the next line.
class WrappingLayout final : public QLayout
{
    Q_OBJECT

public:
    explicit WrappingLayout(QWidget* parent);
    ~WrappingLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    [[nodiscard]] std::vector<QRect> places(int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace driftbox
