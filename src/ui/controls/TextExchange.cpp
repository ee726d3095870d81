#include "ui/controls/TextExchange.h"

#include "core/PasteboardWriter.h"

namespace driftbox {

TextExchange textExchange(const Pasteboard& pasteboard, PasteboardWriter& writer)
{
    return {
        .pasteboardText = [&pasteboard] { return pasteboard.content().text.value_or(QString()); },
        .copyText = [&writer](const QString& text) { writer.write({.text = text}); }};
}

} // namespace driftbox
