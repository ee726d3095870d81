#include "platform/selection/PasteboardTargets.h"

namespace driftbox::PasteboardTargets {

namespace {

// PNG needs no conversion; then lossless formats come before lossy ones.
const QByteArrayList& imageNames()
{
    static const QByteArrayList names{png,          "image/bmp",  "image/x-bmp", "image/x-ms-bmp",
                                      "image/tiff", "image/webp", "image/gif",   "image/jpeg",
                                      "image/jpg"};
    return names;
}

const QByteArrayList& textNames()
{
    static const QByteArrayList names{utf8String, utf8Text, "text/plain;charset=UTF-8", plainText,
                                      latin1String};
    return names;
}

const QByteArrayList& opaqueNames()
{
    static const QByteArrayList names{"text/html", "text/uri-list", "x-special/gnome-copied-files"};
    return names;
}

QByteArrayList offeredOf(const QByteArrayList& names, const QSet<QByteArray>& offered)
{
    QByteArrayList found;
    for (const QByteArray& name : names) {
        if (offered.contains(name))
            found.append(name);
    }
    return found;
}

} // namespace

const QByteArrayList& rtfNames()
{
    static const QByteArrayList names{"text/rtf", "application/rtf", "text/richtext"};
    return names;
}

const QByteArrayList& knownNames()
{
    static const QByteArrayList names =
        imageNames() + textNames() + rtfNames() + opaqueNames() + QByteArrayList{secretHint};
    return names;
}

TargetChoice choose(const QSet<QByteArray>& offered)
{
    if (offered.contains(secretHint))
        return {.isSecret = true, .image = {}, .text = {}, .rtf = {}, .opaque = {}};
    return {.isSecret = false,
            .image = offeredOf(imageNames(), offered),
            .text = offeredOf(textNames(), offered),
            .rtf = offeredOf(rtfNames(), offered),
            .opaque = offeredOf(opaqueNames(), offered)};
}

TargetChoice chooseDefault()
{
    return {.isSecret = false,
            .image = {},
            .text = {utf8String, latin1String},
            .rtf = {},
            .opaque = {}};
}

} // namespace driftbox::PasteboardTargets
