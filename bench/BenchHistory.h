#pragma once

#include "clipboard/ClipboardListModel.h"
#include "clipboard/ClipboardViewModel.h"
#include "clipboard/FileClipboardStore.h"
#include "clipboard/ThumbnailCache.h"
#include "core/AppSettings.h"
#include "core/JsonUserDefaults.h"
#include "core/PasteRequest.h"
#include "core/PasteboardWriter.h"
#include "platform/desktop/PosixFileSystem.h"
#include "platform/desktop/SystemClock.h"
#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "tests/fakes/FakeTextRecognizer.h"

#include <QtCore/QTemporaryDir>

namespace driftbox::bench {

/// The real file system and clock, with data in a temporary folder.
struct BenchMachine
{
    QTemporaryDir folder;
    PosixFileSystem files;
    SystemClock clock;
    ThreadPoolTaskRunner tasks;
    JsonUserDefaults defaults{files, folder.filePath(QStringLiteral("config"))};
    AppSettings settings{defaults};

    [[nodiscard]] QString root() const { return folder.filePath(QStringLiteral("Driftbox")); }

    /// Writes a history to disk, which the next store loads.
    void writeManifest(const std::vector<ClipboardItem>& items)
    {
        files.createFolder(root());
        ClipboardManifest::Writer writer;
        const auto written =
            files.writeAtomically(root() + QStringLiteral("/manifest.json"), writer.encode(items));
        if (!written)
            qFatal("%s", qUtf8Printable(written.error().message));
    }
};

/// A clipboard history set up as in the program, using `pasteboard`.
struct BenchHistory
{
    BenchMachine& machine;
    Pasteboard& pasteboard;
    FakeTextRecognizer recognizer{};
    PasteRequest pasteRequest{};
    PasteboardWriter pasteboardWriter{pasteboard};
    FileClipboardStore store{machine.files, machine.clock, machine.root()};
    ClipboardMonitor monitor{pasteboard, machine.clock};
    ThumbnailCache thumbnails{machine.files, machine.tasks};
    ClipboardViewModel viewModel{{store, monitor, machine.settings, pasteboardWriter, pasteRequest,
                                  thumbnails, machine.files, machine.tasks, recognizer,
                                  machine.clock}};
    ClipboardListModel rows{viewModel, machine.clock};
};

/// An in-memory pasteboard.
class BenchPasteboard final : public Pasteboard
{
public:
    [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
    [[nodiscard]] PasteboardContent content() const override { return m_content; }
    void write(const PasteboardContent& content) override
    {
        m_content = content;
        ++m_changeCount;
    }

private:
    PasteboardContent m_content;
    qint64 m_changeCount = 0;
};

/// A text of `length` characters that is unique to `seed`.
inline QString words(int seed, int length)
{
    static const QStringList vocabulary = {
        QStringLiteral("harbour"), QStringLiteral("Leuchtturm"), QStringLiteral("über"),
        QStringLiteral("station"), QStringLiteral("weather"),    QStringLiteral("42"),
        QStringLiteral("ferry"),   QStringLiteral("crane"),      QStringLiteral("señal")};
    QString text = QString::number(seed);
    auto state = static_cast<quint32>(seed);
    while (text.size() < length) {
        state = state * 1664525U + 1013904223U;
        text += u' ' + vocabulary[static_cast<qsizetype>((state >> 16U) % vocabulary.size())];
    }
    text.truncate(length);
    return text;
}

inline ClipboardItem textItem(int seed, int length)
{
    ClipboardItem item;
    item.textContent = words(seed, length);
    item.createdAt = Instant::fromReferenceSeconds(700'000'000.0 - seed);
    return item;
}

/// `count` distinct texts.
inline std::vector<ClipboardItem> textItems(int count, int length)
{
    std::vector<ClipboardItem> items;
    items.reserve(static_cast<size_t>(count));
    for (int seed = 0; seed < count; ++seed)
        items.push_back(textItem(seed, length));
    return items;
}

} // namespace driftbox::bench
