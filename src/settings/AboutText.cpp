#include "settings/AboutText.h"

using namespace Qt::StringLiterals;

namespace driftbox {

QString AboutText::versionLine(const QString& version, const QString& build)
{
    return u"Version %1 (%2)"_s.arg(version.isEmpty() ? u"1.0"_s : version,
                                    build.isEmpty() ? u"1"_s : build);
}

} // namespace driftbox
