#include "clipboard/ClipboardItem.h"

#include "core/ImageFileName.h"

namespace driftbox {

QString ClipboardItem::imageFile() const
{
    return driftbox::imageFileName(imageFileName, id.text());
}

} // namespace driftbox
