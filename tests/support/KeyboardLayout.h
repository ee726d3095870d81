#pragma once

#include <QtCore/QStringList>

namespace driftbox {

/// Changes the X server's keyboard settings, given as arguments of setxkbmap, until the end of the
/// scope.
class KeyboardLayout
{
public:
    explicit KeyboardLayout(const QStringList& settings);
    ~KeyboardLayout();
    KeyboardLayout(const KeyboardLayout&) = delete;
    KeyboardLayout& operator=(const KeyboardLayout&) = delete;
};

} // namespace driftbox
