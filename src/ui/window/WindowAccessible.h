#pragma once

class QWidget;

namespace driftbox {

/// Has assistive technology read `window`, which has no parent, as the window that it is. The
/// toolkit says so only of its own kinds of windows. To be called before the window is given a
/// name: what has been read once stays as it is.
void readAsWindow(QWidget& window);

} // namespace driftbox
