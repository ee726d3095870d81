#pragma once

class QWidget;

namespace driftbox {

/// From now on the wheel turns the value of `control` only while it has the keyboard; else it
/// scrolls what is around it.
void letWheelPass(QWidget& control);

} // namespace driftbox
