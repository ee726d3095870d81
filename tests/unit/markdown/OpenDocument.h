#pragma once

#include "fakes/FakeDocumentOpener.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakeSelectedText.h"
#include "fakes/FakeStandardWindows.h"
#include "fakes/FakeTaskRunner.h"
#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/view/MarkdownWebEngine.h"
#include "markdown/view/ReaderServices.h"

namespace driftbox {

/// Has no engine, and counts how often one is wanted.
class NoWebEngines final : public MarkdownWebEngineFactory
{
public:
    [[nodiscard]] std::function<void()> preloading() const override
    {
        return [] {};
    }
    [[nodiscard]] MarkdownWebEngine* engine() override
    {
        ++wanted;
        return nullptr;
    }

    int wanted = 0;
};

/// A document on a disk and a desktop of fakes, without a web engine.
struct OpenDocument
{
    explicit OpenDocument(const QByteArray& bytes = "# Title\n")
    {
        files.setFile(path, bytes);
        document.load();
    }

    const QString path = QStringLiteral("/docs/doc.md");
    FakeFileSystem files;
    FakeStandardWindows windows;
    FakeDocumentOpener opener;
    FakePasteboard pasteboard;
    FakeSelectedText selectedText;
    FakeTaskRunner tasks;
    NoWebEngines webEngines;
    ReaderServices services{windows,
                            opener,
                            pasteboard,
                            selectedText,
                            tasks,
                            webEngines,
                            MarkdownResource(QStringLiteral(DRIFTBOX_TEST_RESOURCES))};
    MarkdownReaderViewModel document{QUrl::fromLocalFile(path), files};
};

} // namespace driftbox
