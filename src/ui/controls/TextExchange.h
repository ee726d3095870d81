#pragma once

#include <functional>

#include <QtCore/QString>

namespace driftbox {

class Pasteboard;
class PasteboardWriter;

/// The access of a text field to the pasteboard. Main thread only.
struct TextExchange
{
    std::function<QString()> pasteboardText; ///< empty if there is none
    std::function<void(const QString&)> copyText;
};

/// Accesses the program's pasteboard; copied text is not captured. Both arguments must outlive the
/// exchange.
[[nodiscard]] TextExchange textExchange(const Pasteboard& pasteboard, PasteboardWriter& writer);

} // namespace driftbox
