#pragma once

#include "markdown/MarkdownResource.h"

namespace driftbox {

class DocumentOpener;
class MarkdownWebEngineFactory;
class Pasteboard;
class SelectedText;
class StandardWindows;
class TaskRunner;

/// The services used by reader windows, which must not outlive them.
struct ReaderServices
{
    StandardWindows& windows;
    DocumentOpener& opener;
    Pasteboard& pasteboard;
    SelectedText& selectedText;
    TaskRunner& tasks;
    MarkdownWebEngineFactory& webEngines;
    MarkdownResource resources;
};

} // namespace driftbox
