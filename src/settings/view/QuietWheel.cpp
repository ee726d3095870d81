#include "settings/view/QuietWheel.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

namespace driftbox {

namespace {

class WheelFilter final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* control = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::Wheel || !control || control->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

void letWheelPass(QWidget& control)
{
    control.setFocusPolicy(Qt::StrongFocus); // the wheel must not move the focus here
    control.installEventFilter(new WheelFilter(&control));
}

} // namespace driftbox
