#include "app/Application.h"

#include <QtCore/QEvent>

namespace driftbox {

bool Application::event(QEvent* event)
{
    if (event->type() != QEvent::Quit)
        return QApplication::event(event);
    exit();
    return true;
}

} // namespace driftbox
