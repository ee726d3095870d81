#pragma once

namespace driftbox::X11Display {

/// Has the toolkit connect to the X server, also that of a Wayland session, whatever platform it
/// was told to use. To be called before the application object is made, which would end the program
/// with a core dump where there is no display. False, with a line on standard error, when no X
/// server answers.
[[nodiscard]] bool choose();

} // namespace driftbox::X11Display
