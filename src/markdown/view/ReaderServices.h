#pragma once

#include "markdown/MarkdownResource.h"

#include <functional>

namespace driftbox {

class DocumentOpener;
class MarkdownWebEngine;
class Pasteboard;
class StandardWindows;

/// What reader windows work with; what it refers to must outlive them.
struct ReaderServices
{
    StandardWindows& windows;
    DocumentOpener& opener;
    Pasteboard& pasteboard;
    MarkdownResource resources;
    /// The web engine, loaded by the first call; null when there is none.
    std::function<MarkdownWebEngine*()> webEngine;
};

} // namespace driftbox
