#pragma once

#include <QtCore/Qt>

namespace driftbox {

/// A key press in one of this program's windows.
struct KeyPress
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isRepeated = false; ///< the key has been held down since an earlier press
};

} // namespace driftbox
