#include "clipboard/ClipboardManifest.h"
#include "clipboard/FileClipboardStore.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "support/main/TestMain.h"

#include <memory>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString root = u"/data/Driftbox"_s;
const QString manifestPath = root + u"/manifest.json"_s;

ClipboardItem text(const QString& content)
{
    return {.textContent = content, .createdAt = Instant::fromReferenceSeconds(1)};
}

ClipboardItem image()
{
    return {.kind = ClipboardItem::Kind::image, .createdAt = Instant::fromReferenceSeconds(2)};
}

} // namespace

class TestFileClipboardStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_files = std::make_unique<FakeFileSystem>();
        m_store = std::make_unique<FileClipboardStore>(*m_files, m_clock, root);
    }

    void firstStartCreatesTheFoldersAndWritesNothing()
    {
        QVERIFY(m_files->folderExists(root));
        QVERIFY(m_files->folderExists(root + u"/images"_s));
        QVERIFY(m_store->allItems().empty());
        QCOMPARE(m_files->writeCount(), 0);
    }

    void addedItemsAreInFrontAndSurviveARestart()
    {
        const ClipboardItem first = text(u"first"_s);
        const ClipboardItem second = image();
        m_store->add(first, QByteArray("ignored for text"));
        m_store->add(second, QByteArray("PNG"));

        QCOMPARE(m_files->files(), QStringList({m_store->imageURL(second), manifestPath}));
        QCOMPARE(m_files->read(m_store->imageURL(second)), QByteArray("PNG"));

        const FileClipboardStore restarted(*m_files, m_clock, root);
        QVERIFY(restarted.allItems() == (std::vector{second, first}));
    }

    void itemIsListedEvenIfItsImageCannotBeWritten()
    {
        const ClipboardItem item = image();
        const QString path = m_store->imageURL(item);
        m_files->failWrites(u"No space left on device"_s, path);
        QTest::ignoreMessage(
            QtCriticalMsg,
            qUtf8Printable(
                u"Failed to write image %1.png: No space left on device"_s.arg(item.id.text())));
        m_store->add(item, QByteArray("PNG"));
        QCOMPARE(m_store->allItems().size(), size_t(1));
        QCOMPARE(manifest().size(), size_t(1));
        QVERIFY(!m_files->exists(path));
    }

    void failedManifestWriteIsLoggedAndKeptInMemory()
    {
        m_store->add(text(u"saved"_s), std::nullopt);
        m_files->failWrites(u"Read-only file system"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Failed to persist manifest: Read-only file system");
        m_store->add(text(u"kept"_s), std::nullopt);
        QCOMPARE(m_store->allItems().size(), size_t(2));
        QCOMPARE(manifest().size(), size_t(1));

        m_files->succeed();
        m_store->add(text(u"next"_s), std::nullopt);
        QCOMPARE(manifest().size(), size_t(3));
    }

    void pinningUpdatesTheTimestampAndUnpinningRemovesIt()
    {
        const ClipboardItem item = text(u"a"_s);
        m_store->add(item, std::nullopt);
        m_store->setPinned(item.id, true);
        QCOMPARE(m_store->allItems().front().pinnedAt, m_clock.now());
        m_clock.advance(1s);
        m_store->setPinned(item.id, true);
        QCOMPARE(m_store->allItems().front().pinnedAt, m_clock.now());
        QVERIFY(manifest() == m_store->allItems());
        m_store->setPinned(item.id, false);
        QVERIFY(manifest() == std::vector{item});
    }

    void movingToTheFrontKeepsTheRestInOrder()
    {
        const std::vector items = {text(u"c"_s), text(u"b"_s), text(u"a"_s)};
        addAll(items);
        m_store->moveToFront(items[2].id);
        QVERIFY(m_store->allItems() == (std::vector{items[2], items[0], items[1]}));
        QVERIFY(manifest() == m_store->allItems());

        const int writes = m_files->writeCount(manifestPath);
        m_store->moveToFront(items[2].id); // it is in front already
        QCOMPARE(m_files->writeCount(manifestPath), writes + 1);
    }

    void removingAnImageRemovesItsFile()
    {
        ClipboardItem item = image();
        item.imageFileName = u"foreign.png"_s;
        m_store->add(item, QByteArray("PNG"));
        QVERIFY(m_files->exists(root + u"/images/foreign.png"_s));
        m_store->remove(item.id);
        QCOMPARE(m_files->files(), QStringList(manifestPath));
        QVERIFY(manifest().empty());
    }

    void unknownIdsAreIgnored()
    {
        m_store->add(text(u"a"_s), std::nullopt);
        const int writes = m_files->writeCount();
        const ClipboardItemId unknown = ClipboardItemId::random();
        m_store->setPinned(unknown, true);
        m_store->moveToFront(unknown);
        m_store->remove(unknown);
        QCOMPARE(m_files->writeCount(), writes);
        QCOMPARE(m_store->allItems().size(), size_t(1));
    }

    void clearingRemovesUnpinnedItemsAndTheirFiles()
    {
        const std::vector items = {image(), text(u"pinned"_s), image(), text(u"loose"_s)};
        addAll(items);
        m_store->setPinned(items[1].id, true);
        m_store->setPinned(items[2].id, true);
        m_store->clearUnpinned();
        QCOMPARE(m_store->allItems().size(), size_t(2));
        QCOMPARE(m_store->allItems()[0].id, items[1].id);
        QCOMPARE(m_store->allItems()[1].id, items[2].id);
        QCOMPARE(m_files->files(), QStringList({m_store->imageURL(items[2]), manifestPath}));
    }

    void clearingWithOnlyPinnedItemsStillWrites()
    {
        const ClipboardItem item = text(u"a"_s);
        m_store->add(item, std::nullopt);
        m_store->setPinned(item.id, true);
        const int writes = m_files->writeCount(manifestPath);
        m_store->clearUnpinned();
        QCOMPARE(m_files->writeCount(manifestPath), writes + 1);
        QCOMPARE(m_store->allItems().size(), size_t(1));
    }

    void pruningKeepsTheNewestAndAllPinnedItems()
    {
        std::vector<ClipboardItem> items;
        for (int index = 0; index < 13; ++index)
            items.push_back(index % 2 == 0 ? image() : text(QString::number(index)));
        addAll(items);
        for (const size_t pinned : {0, 6, 12})
            m_store->setPinned(items[pinned].id, true);

        m_store->pruneUnpinned(5);

        std::vector<ClipboardItemId> kept;
        for (const ClipboardItem& item : m_store->allItems())
            kept.push_back(item.id);
        const std::vector expected = {items[0].id, items[1].id, items[2].id, items[3].id,
                                      items[4].id, items[5].id, items[6].id, items[12].id};
        QVERIFY(kept == expected);
        QVERIFY(manifest() == m_store->allItems());
        for (const size_t index : {0, 2, 4, 6, 12})
            QVERIFY(m_files->exists(m_store->imageURL(items[index])));
        for (const size_t index : {8, 10})
            QVERIFY(!m_files->exists(m_store->imageURL(items[index])));
    }

    void pruningBelowCapacityWritesNothing()
    {
        addAll({text(u"a"_s), text(u"b"_s)});
        const int writes = m_files->writeCount();
        m_store->pruneUnpinned(2);
        m_store->pruneUnpinned(3);
        QCOMPARE(m_files->writeCount(), writes);
        m_store->pruneUnpinned(0);
        QVERIFY(m_store->allItems().empty());
        m_store->pruneUnpinned(-4); // stored settings are not checked
        QVERIFY(m_store->allItems().empty());
        QCOMPARE(m_files->writeCount(), writes + 2);
    }

    void corruptManifestIsBackedUpAndTheStoreStartsEmpty()
    {
        const QByteArray corrupt = R"([{"kind":"file"}])";
        m_files->setFile(manifestPath, corrupt);
        const int writes = m_files->writeCount();
        QTest::ignoreMessage(QtCriticalMsg,
                             "Manifest corrupt, starting empty: item 0: \"id\" is missing");
        FileClipboardStore store(*m_files, m_clock, root);
        QVERIFY(store.allItems().empty());
        QCOMPARE(m_files->read(manifestPath), corrupt);
        QCOMPARE(m_files->writeCount(), writes);

        store.add(text(u"new"_s), std::nullopt);
        QCOMPARE(manifest().size(), size_t(1));
        QCOMPARE(m_files->read(root + u"/manifest.corrupt.json"_s), corrupt);
    }

    void corruptManifestIsNotOverwrittenIfItsBackupFails()
    {
        m_files->setFile(manifestPath, "corrupt");
        QTest::ignoreMessage(QtCriticalMsg,
                             QRegularExpression(u"^Manifest corrupt, starting empty: "_s));
        FileClipboardStore store(*m_files, m_clock, root);
        m_files->failWrites(u"No space left on device"_s, root + u"/manifest.corrupt.json"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Failed to persist manifest: No space left on device");
        store.add(text(u"new"_s), std::nullopt);
        QCOMPARE(m_files->read(manifestPath), QByteArray("corrupt"));
    }

    void failureToCreateFoldersIsTolerated()
    {
        FakeFileSystem files;
        files.failFolders();
        const FileClipboardStore store(files, m_clock, root);
        QVERIFY(store.allItems().empty());
    }

private:
    /// Adds so that the first of `items` is in front.
    void addAll(const std::vector<ClipboardItem>& items)
    {
        for (auto item = items.rbegin(); item != items.rend(); ++item)
            m_store->add(*item, QByteArray("PNG"));
    }

    [[nodiscard]] std::vector<ClipboardItem> manifest() const
    {
        return *ClipboardManifest::decode(m_files->read(manifestPath).value_or("[]"));
    }

    FakeClock m_clock;
    std::unique_ptr<FakeFileSystem> m_files;
    std::unique_ptr<FileClipboardStore> m_store;
};

DRIFTBOX_TEST(TestFileClipboardStore, QCoreApplication)
#include "TestFileClipboardStore.moc"
