#pragma once

#include "fakes/FakeDocumentOpener.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakeStandardWindows.h"
#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/view/ReaderServices.h"

namespace driftbox {

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
    int enginesWanted = 0;
    ReaderServices services{windows, opener, pasteboard,
                            MarkdownResource(QStringLiteral(DRIFTBOX_TEST_RESOURCES)), [this] {
                                ++enginesWanted;
                                return nullptr;
                            }};
    MarkdownReaderViewModel document{QUrl::fromLocalFile(path), files};
};

} // namespace driftbox
