#include "settings/view/SystemColors.h"

#include "ui/theme/Theme.h"

namespace driftbox {

QColor systemColor(SystemColor color)
{
    const bool isDark = Theme::isDark();
    switch (color) {
    case SystemColor::gray:
        return isDark ? QColor(0x7d, 0x7d, 0x85) : QColor(0x84, 0x84, 0x8c);
    case SystemColor::blue:
        return isDark ? QColor(0x1d, 0x84, 0xff) : QColor(0x0a, 0x7a, 0xf5);
    case SystemColor::yellow:
        return isDark ? QColor(0xe6, 0xa8, 0x00) : QColor(0xee, 0xb0, 0x00);
    case SystemColor::purple:
        return isDark ? QColor(0xb9, 0x5c, 0xee) : QColor(0xa5, 0x4f, 0xdb);
    case SystemColor::green:
        return isDark ? QColor(0x32, 0xd1, 0x5a) : QColor(0x20, 0xa1, 0x45);
    case SystemColor::orange:
        return isDark ? QColor(0xff, 0x9f, 0x2a) : QColor(0xe0, 0x7c, 0x00);
    }
    Q_UNREACHABLE();
}

} // namespace driftbox
