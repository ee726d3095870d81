#include "clipboard/RelativeTime.h"

#include <array>
#include <cmath>

#include <unicode/reldatefmt.h>

namespace driftbox {

namespace {

struct Unit
{
    double seconds;
    URelativeDateTimeUnit name;
};

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;

constexpr std::array units = {
    Unit{365 * day, UDAT_REL_UNIT_YEAR}, Unit{30 * day, UDAT_REL_UNIT_MONTH},
    Unit{7 * day, UDAT_REL_UNIT_WEEK},   Unit{day, UDAT_REL_UNIT_DAY},
    Unit{hour, UDAT_REL_UNIT_HOUR},      Unit{minute, UDAT_REL_UNIT_MINUTE},
    Unit{1, UDAT_REL_UNIT_SECOND},
};

const Unit& unitFor(double seconds)
{
    for (const Unit& unit : units) {
        if (std::abs(seconds) >= unit.seconds)
            return unit;
    }
    return units.back();
}

} // namespace

QString relativeTime(Instant then, Instant now, const QLocale& locale)
{
    const double seconds = then.referenceSeconds() - now.referenceSeconds();
    const Unit& unit = unitFor(seconds);

    UErrorCode status = U_ZERO_ERROR;
    const icu::RelativeDateTimeFormatter formatter(icu::Locale(locale.name().toUtf8().constData()),
                                                   nullptr, UDAT_STYLE_LONG,
                                                   UDISPCTX_CAPITALIZATION_NONE, status);
    icu::UnicodeString text;
    formatter.format(std::trunc(seconds / unit.seconds), unit.name, text, status);
    return U_SUCCESS(status) ? QString::fromUtf16(text.getBuffer(), text.length()) : QString();
}

} // namespace driftbox
