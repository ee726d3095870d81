#pragma once

#include <functional>

#include <QtCore/QString>

namespace driftbox {

class Pasteboard;
class PasteboardWriter;

/// The way that text goes which a field copies and pastes. Main thread only.
struct TextExchange
{
    std::function<QString()> pasteboardText; ///< empty when there is none
    std::function<void(const QString&)> copyText;
};

/// Over the program's pasteboard; what is copied is not captured. Both must outlive the exchange.
[[nodiscard]] TextExchange textExchange(const Pasteboard& pasteboard, PasteboardWriter& writer);

} // namespace driftbox
