#pragma once

#include <QtCore/QtGlobal>

namespace driftbox {

inline constexpr qsizetype kibibyte = 1024;
inline constexpr qsizetype mebibyte = 1024 * kibibyte;

} // namespace driftbox
