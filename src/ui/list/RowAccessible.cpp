#include "ui/list/RowAccessible.h"

#include "ui/list/RowListView.h"

namespace driftbox {

PressableAccessible::PressableAccessible(RowListView& view, QPersistentModelIndex index)
    : m_view(view)
    , m_index(std::move(index))
{
}

QWindow* PressableAccessible::window() const
{
    return m_view.window()->windowHandle();
}

QRect PressableAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect inViewport = viewportRect();
    return {m_view.viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size()};
}

QAccessibleInterface* PressableAccessible::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i) {
        if (child(i)->rect().contains(x, y))
            return child(i);
    }
    return nullptr;
}

void* PressableAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList PressableAccessible::actionNames() const
{
    return {pressAction()};
}

void PressableAccessible::doAction(const QString& name)
{
    if (isValid() && name == pressAction())
        press();
}

QAccessible::State PressableAccessible::visibilityState() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    state.invisible = !m_view.isVisible();
    state.offscreen = !isValid() || !m_view.viewport()->rect().intersects(viewportRect());
    return state;
}

RowAccessible::~RowAccessible()
{
    for (const QAccessible::Id id : m_buttons)
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* RowAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(&view());
}

int RowAccessible::childCount() const
{
    return isValid() ? static_cast<int>(view().buttons(row()).size()) : 0;
}

QAccessibleInterface* RowAccessible::child(int button) const
{
    if (button < 0 || button >= childCount())
        return nullptr;
    for (int next = static_cast<int>(m_buttons.size()); next <= button; ++next)
        m_buttons.push_back(QAccessible::registerAccessibleInterface(
            new RowButtonAccessible(view(), index(), next)));
    return QAccessible::accessibleInterface(m_buttons[static_cast<size_t>(button)]);
}

int RowAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* button = dynamic_cast<const RowButtonAccessible*>(child);
    return button ? button->button() : -1;
}

QString RowAccessible::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Description)
        return view().delegate().help();
    return kind == QAccessible::Name ? index().data(Qt::AccessibleTextRole).toString() : QString();
}

QAccessible::State RowAccessible::state() const
{
    QAccessible::State state = visibilityState();
    state.selectable = true;
    state.focusable = true;
    state.selected = isValid() && row() == view().selectedRow();
    state.focused = state.selected;
    return state;
}

QRect RowAccessible::viewportRect() const
{
    return view().rowRect(row());
}

void RowAccessible::press()
{
    view().delegate().pick(index());
}

RowButtonAccessible::RowButtonAccessible(RowListView& view, const QPersistentModelIndex& index,
                                         int button)
    : PressableAccessible(view, index)
    , m_button(button)
{
}

QAccessibleInterface* RowButtonAccessible::parent() const
{
    const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view());
    return list ? list->child(row()) : nullptr;
}

RowButton RowButtonAccessible::description() const
{
    return view().buttons(row())[static_cast<size_t>(m_button)];
}

QString RowButtonAccessible::text(QAccessible::Text kind) const
{
    return isValid() && kind == QAccessible::Name ? description().help : QString();
}

QAccessible::State RowButtonAccessible::state() const
{
    QAccessible::State state = visibilityState();
    if (!isValid())
        return state;
    const RowButton button = description();
    state.disabled = !button.isEnabled;
    if (button.visibility == RowButton::Visibility::revealed && !view().isRevealed(row()))
        state.invisible = true;
    return state;
}

QRect RowButtonAccessible::viewportRect() const
{
    return description().rect.translated(view().rowRect(row()).topLeft());
}

void RowButtonAccessible::press()
{
    if (description().isEnabled)
        view().delegate().press(index(), m_button);
}

} // namespace driftbox
