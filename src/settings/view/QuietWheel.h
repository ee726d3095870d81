#pragma once

class QWidget;

namespace driftbox {

/// Makes the mouse wheel change the value of `control` only while that has the keyboard focus;
/// otherwise it scrolls the surrounding page.
void letWheelPass(QWidget& control);

} // namespace driftbox
