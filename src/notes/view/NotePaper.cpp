#include "notes/view/NotePaper.h"

#include "panel/view/Theme.h"

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

QColor selection(NoteColor color)
{
    const QColor paper = Theme::noteSwatch(color).toHsv();
    return QColor::fromHsvF(paper.hsvHueF(), std::min(1.0F, paper.hsvSaturationF() * 2.2F),
                            paper.valueF() * 0.96F);
}

} // namespace driftbox::NotePaper
