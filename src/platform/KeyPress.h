#pragma once

#include <QtCore/Qt>

namespace driftbox {

/// A key that is pressed in a window of this program.
struct KeyPress
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isRepeated = false; ///< the key has been held down since an earlier press
};

} // namespace driftbox
