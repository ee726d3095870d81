#pragma once

#include <QtCore/Qt>

namespace driftbox {

/// A key that is pressed while the typing goes to a list's search field.
struct ListKeyPress
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isRepeated = false; ///< comes from a key that is held down
};

} // namespace driftbox
