#include "ui/window/WindowAccessible.h"

#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QWidget>

namespace driftbox {

namespace {

constexpr auto property = "driftboxReadAsWindow";

QAccessibleInterface* makeWindowInterface(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isWindow = widget && widget->property(property).toBool();
    return isWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace

void readAsWindow(QWidget& window)
{
    QAccessible::installFactory(makeWindowInterface); // no effect if installed already
    window.setProperty(property, true);
}

} // namespace driftbox
