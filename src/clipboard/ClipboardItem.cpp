#include "clipboard/ClipboardItem.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// A foreign manifest must not reach outside the images folder.
bool staysInFolder(const QString& name)
{
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains(u'/') &&
           !name.contains(QChar::Null);
}

} // namespace

QString ClipboardItem::imageFile() const
{
    return imageFileName && staysInFolder(*imageFileName) ? *imageFileName : id.text() + u".png"_s;
}

} // namespace driftbox
