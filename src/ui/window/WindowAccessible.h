#pragma once

class QWidget;

namespace driftbox {

/// Exposes `window`, a top-level widget, to assistive technology as a window; Qt does so only for
/// its own window classes. Call it before setting the accessible name, which creates the interface.
void readAsWindow(QWidget& window);

} // namespace driftbox
