#pragma once

#include "clipboard/ClipboardViewModel.h"
#include "clipboard/FileClipboardStore.h"
#include "clipboard/ThumbnailCache.h"
#include "core/AppSettings.h"
#include "core/PasteRequest.h"
#include "core/PasteboardWriter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakeTaskRunner.h"
#include "fakes/FakeTextRecognizer.h"
#include "fakes/FakeUserDefaults.h"
#include "support/Images.h"

#include <QtTest/QSignalSpy>

namespace driftbox {

/// A clipboard history with all its dependencies.
struct ClipboardHistory
{
    FakeUserDefaults defaults;
    AppSettings settings{defaults};
    FakeClock clock;
    FakeFileSystem files;
    FakePasteboard pasteboard;
    FakeTaskRunner tasks;
    FakeTextRecognizer recognizer;
    PasteRequest pasteRequest;
    FileClipboardStore store{files, clock, QStringLiteral("/data")};
    PasteboardWriter pasteboardWriter{pasteboard};
    ClipboardMonitor monitor{pasteboard, clock};
    QMetaObject::Connection knowsOwnWrites = QObject::connect(
        &pasteboardWriter, &PasteboardWriter::written, &monitor, &ClipboardMonitor::markSeen);
    ThumbnailCache thumbnails{files, tasks};
    ClipboardViewModel viewModel{{store, monitor, settings, pasteboardWriter, pasteRequest,
                                  thumbnails, files, tasks, recognizer, clock}};
    QSignalSpy posted{&pasteRequest, &PasteRequest::posted};

    ClipboardItem copy(const PasteboardContent& content)
    {
        pasteboard.copy(content);
        monitor.tick();
        return viewModel.items().front();
    }
    ClipboardItem copy(const QString& text) { return copy(PasteboardContent{.text = text}); }

    [[nodiscard]] QStringList texts() const
    {
        QStringList texts;
        for (const ClipboardItem& item : viewModel.visibleItems())
            texts << item.textContent.value_or(QStringLiteral("(image)"));
        return texts;
    }
};

} // namespace driftbox
