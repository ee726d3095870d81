#include "clipboard/InstalledLanguages.h"

#include <algorithm>

#include <unicode/locid.h>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr qsizetype maxLanguages = 8;

/// Excludes the data for orientation, equations and vertical writing.
bool isLanguage(const QString& name)
{
    return name != u"osd"_s && name != u"equ"_s && !name.endsWith(u"_vert"_s);
}

/// Tesseract's name for the language of `locale`.
QString nameOf(const QLocale& locale)
{
    switch (locale.language()) {
    case QLocale::Chinese:
        return locale.script() == QLocale::TraditionalHanScript ? u"chi_tra"_s : u"chi_sim"_s;
    case QLocale::NorwegianBokmal:
    case QLocale::NorwegianNynorsk:
        return u"nor"_s;
    default:
        return QString::fromLatin1(icu::Locale(locale.name().toLatin1()).getISO3Language());
    }
}

} // namespace

QStringList preferredLanguages(const QStringList& installed, const QLocale& locale,
                               const QStringList& usual)
{
    QStringList others = installed;
    std::ranges::sort(others);
    QStringList preferred;
    for (const QString& language : QStringList(nameOf(locale)) + usual + others) {
        if (installed.contains(language) && isLanguage(language) && !preferred.contains(language))
            preferred.push_back(language);
    }
    return preferred.first(std::min(preferred.size(), maxLanguages));
}

} // namespace driftbox
