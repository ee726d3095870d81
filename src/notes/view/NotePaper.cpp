#include "notes/view/NotePaper.h"

#include "ui/theme/Theme.h"

#include <algorithm>

namespace driftbox::NotePaper {

QColor ink()
{
    return {0x2b, 0x27, 0x22};
}

QColor ink(qreal opacity)
{
    return Theme::withOpacity(ink(), opacity);
}

QColor symbol()
{
    return ink(0.74);
}

QColor selection(NoteColor color)
{
    const QColor paper = Theme::noteSwatch(color).toHsv();
    return QColor::fromHsvF(paper.hsvHueF(), std::min(1.0F, paper.hsvSaturationF() * 1.8F),
                            paper.valueF() * 0.92F);
}

} // namespace driftbox::NotePaper
