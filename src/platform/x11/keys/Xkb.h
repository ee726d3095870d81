#pragma once

#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif

// The C header names a member with a keyword of C++.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#ifdef __clang__
#pragma clang diagnostic pop
#endif
