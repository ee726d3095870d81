#include "core/ImageFileName.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

bool isPlainFileName(const QString& name)
{
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains(u'/') &&
           !name.contains(QChar::Null);
}

} // namespace

QString imageFileName(const std::optional<QString>& named, const QString& id)
{
    return named && isPlainFileName(*named) ? *named : id + u".png"_s;
}

} // namespace driftbox
