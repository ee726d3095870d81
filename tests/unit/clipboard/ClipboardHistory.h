#pragma once

#include "clipboard/ClipboardViewModel.h"
#include "clipboard/FileClipboardStore.h"
#include "clipboard/TextRecognizer.h"
#include "clipboard/ThumbnailCache.h"
#include "core/AppSettings.h"
#include "core/NotificationCenter.h"
#include "core/PasteboardWriter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakeTaskRunner.h"
#include "fakes/FakeUserDefaults.h"

#include <QtCore/QBuffer>
#include <QtTest/QSignalSpy>

namespace driftbox {

/// Knows the text of some pictures.
class FakeRecognizer final : public TextRecognizer
{
public:
    [[nodiscard]] QString recognizeText(const QByteArray& image) const override
    {
        return texts.value(image);
    }
    QHash<QByteArray, QString> texts;
};

/// The bytes of a red picture.
inline QByteArray picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

/// A clipboard history with everything it stands on.
struct ClipboardHistory
{
    FakeUserDefaults defaults;
    AppSettings settings{defaults};
    FakeClock clock;
    FakeFileSystem files;
    FakePasteboard pasteboard;
    FakeTaskRunner tasks;
    FakeRecognizer recognizer;
    NotificationCenter notifications;
    FileClipboardStore store{files, clock, QStringLiteral("/data")};
    PasteboardWriter pasteboardWriter{pasteboard};
    ClipboardMonitor monitor{pasteboard, clock};
    QMetaObject::Connection knowsOwnWrites = QObject::connect(
        &pasteboardWriter, &PasteboardWriter::written, &monitor, &ClipboardMonitor::markSeen);
    ThumbnailCache thumbnails{files, tasks};
    ClipboardViewModel viewModel{{store, monitor, settings, pasteboardWriter, notifications,
                                  thumbnails, files, tasks, recognizer, clock}};
    QSignalSpy posted{&notifications, &NotificationCenter::posted};

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
