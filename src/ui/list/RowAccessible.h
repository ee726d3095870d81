#pragma once

#include "ui/list/RowDelegate.h"

#include <QtCore/QPersistentModelIndex>
#include <QtGui/QAccessible>

namespace driftbox {

class RowListView;

/// The common accessible interface of rows and of the buttons in them, which can be pressed.
class PressableAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    PressableAccessible(RowListView& view, QPersistentModelIndex index);

    /// -1 once the row has been removed.
    [[nodiscard]] int row() const { return m_index.isValid() ? m_index.row() : -1; }

    [[nodiscard]] bool isValid() const override { return m_index.isValid(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    void setText(QAccessible::Text, const QString&) override {}
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

protected:
    /// The element's rectangle in the list's viewport.
    [[nodiscard]] virtual QRect viewportRect() const = 0;
    virtual void press() = 0;
    [[nodiscard]] QAccessible::State visibilityState() const;

    [[nodiscard]] RowListView& view() const { return m_view; }
    [[nodiscard]] const QPersistentModelIndex& index() const { return m_index; }

private:
    RowListView& m_view;
    QPersistentModelIndex m_index;
};

class RowAccessible final : public PressableAccessible
{
public:
    using PressableAccessible::PressableAccessible;
    ~RowAccessible() override;

    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int button) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override;

protected:
    [[nodiscard]] QRect viewportRect() const override;
    void press() override;

private:
    mutable std::vector<QAccessible::Id> m_buttons;
};

class RowButtonAccessible final : public PressableAccessible
{
public:
    RowButtonAccessible(RowListView& view, const QPersistentModelIndex& index, int button);

    [[nodiscard]] int button() const { return m_button; }

    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QAccessible::State state() const override;

protected:
    [[nodiscard]] QRect viewportRect() const override;
    void press() override;

private:
    [[nodiscard]] RowButton description() const;

    int m_button;
};

} // namespace driftbox
