#include "fakes/FakeFileSystem.h"
#include "notes/FileNotesStore.h"
#include "notes/NotesManifest.h"
#include "support/main/TestMain.h"

#include <memory>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString root = u"/data/Driftbox/notes"_s;
const QString manifestPath = root + u"/manifest.json"_s;

StickyNote text(const QString& content)
{
    return {.textContent = content, .isSaved = true};
}

StickyNote image()
{
    return {.kind = StickyNote::Kind::image, .isSaved = true};
}

} // namespace

class TestFileNotesStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_files = std::make_unique<FakeFileSystem>();
        m_store = std::make_unique<FileNotesStore>(*m_files, root);
    }

    void firstStartCreatesTheFoldersAndWritesNothing()
    {
        QVERIFY(m_files->folderExists(root));
        QVERIFY(m_files->folderExists(root + u"/images"_s));
        QVERIFY(m_store->notes().empty());
        QCOMPARE(m_files->writeCount(), 0);
    }

    void newNoteGoesToTheFrontAndKnownNoteKeepsItsPlace()
    {
        const StickyNote first = text(u"first"_s);
        StickyNote second = text(u"second"_s);
        const StickyNote third = text(u"third"_s);
        for (const StickyNote& note : {first, second, third})
            m_store->save(note);
        second.textContent = u"changed"_s;
        m_store->save(second);

        QVERIFY(m_store->notes() == (std::vector{third, second, first}));
        QVERIFY(manifest() == m_store->notes());
        QCOMPARE(m_files->writeCount(manifestPath), 4);
        QVERIFY(FileNotesStore(*m_files, root).notes() == m_store->notes());
    }

    void loadedNotesStayInTheManifestWhenAnotherChanges()
    {
        const std::vector notes = {text(u"a"_s), text(u"b"_s), text(u"c"_s)};
        for (const StickyNote& note : notes)
            m_store->save(note);

        FileNotesStore restarted(*m_files, root);
        StickyNote changed = notes[1];
        changed.zoom = 2;
        restarted.save(changed);
        restarted.unsave(notes[2].id);
        QVERIFY(manifest() == (std::vector{changed, notes[0]}));
    }

    void imageOfADraftIsWrittenUnchanged()
    {
        const StickyNote note = image();
        m_store->saveImage("\xff\xd8 not a PNG", note);
        QCOMPARE(m_files->files(), QStringList(imagePath(note)));
        QCOMPARE(m_files->read(imagePath(note)), QByteArray("\xff\xd8 not a PNG"));
        QCOMPARE(m_store->imageURL(note), imagePath(note));

        m_store->saveImage("ignored", text(u"a"_s));
        QCOMPARE(m_files->writeCount(), 1);
    }

    void imageIsWrittenUnderTheNameInTheNote()
    {
        StickyNote note = image();
        note.imageFileName = u"Shot.png"_s;
        m_store->saveImage("PNG", note);
        QCOMPARE(m_files->files(), QStringList(root + u"/images/Shot.png"_s));

        note.imageFileName = u"../manifest.json"_s;
        QCOMPARE(m_store->imageURL(note), imagePath(note));
    }

    void unsavingKeepsTheImage()
    {
        const StickyNote note = image();
        m_store->saveImage("PNG", note);
        m_store->save(note);
        m_store->unsave(note.id);
        QVERIFY(m_store->notes().empty());
        QVERIFY(manifest().empty());
        QVERIFY(m_files->exists(imagePath(note)));

        const int writes = m_files->writeCount();
        m_store->unsave(note.id);
        QCOMPARE(m_files->writeCount(), writes);
    }

    void deletingRemovesTheNoteAndItsImage()
    {
        const StickyNote kept = text(u"kept"_s);
        const StickyNote note = image();
        m_store->save(kept);
        m_store->saveImage("PNG", note);
        m_store->save(note);
        m_store->remove(note.id);
        QVERIFY(manifest() == std::vector{kept});
        QCOMPARE(m_files->files(), QStringList(manifestPath));
    }

    void deletingADraftRemovesItsImageAndWritesNothing()
    {
        const StickyNote draft = image();
        m_store->saveImage("PNG", draft);
        const int writes = m_files->writeCount();
        m_store->remove(draft.id);
        QVERIFY(m_files->files().isEmpty());
        QCOMPARE(m_files->writeCount(), writes);
    }

    void deletingUsesTheIdWhateverTheImageIsNamed()
    {
        StickyNote note = image();
        note.imageFileName = u"Shot.png"_s;
        m_store->saveImage("PNG", note);
        m_store->save(note);
        m_files->setFile(imagePath(note), "PNG");
        m_store->remove(note.id);
        QVERIFY(!m_files->exists(imagePath(note)));
        QVERIFY(m_files->exists(root + u"/images/Shot.png"_s));
    }

    void failedManifestWriteIsLoggedAndKeptInMemory()
    {
        m_store->save(text(u"saved"_s));
        m_files->failWrites(u"No space left on device"_s);
        QTest::ignoreMessage(QtCriticalMsg,
                             "Failed to persist notes manifest: No space left on device");
        m_store->save(text(u"kept"_s));
        QCOMPARE(m_store->notes().size(), size_t(2));
        QCOMPARE(manifest().size(), size_t(1));

        m_files->succeed();
        m_store->save(text(u"next"_s));
        QVERIFY(manifest() == m_store->notes());
        QCOMPARE(manifest().size(), size_t(3));
    }

    void failedImageWriteIsLogged()
    {
        m_files->failWrites(u"Read-only file system"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Failed to write note image: Read-only file system");
        m_store->saveImage("PNG", image());
    }

    void corruptManifestIsBackedUpAndTheStoreStartsEmpty()
    {
        StickyNote good = text(u"good"_s);
        const QByteArray bad = NotesManifest::encode(good).replace("yellow", "purple");
        const QByteArray corrupt = '[' + NotesManifest::encode(good) + ',' + bad + ']';
        m_files->setFile(manifestPath, corrupt);
        QTest::ignoreMessage(
            QtCriticalMsg,
            "Notes manifest corrupt, starting empty: item 1: \"color\" is malformed");
        FileNotesStore store(*m_files, root);
        QVERIFY(store.notes().empty());
        QCOMPARE(m_files->read(manifestPath), corrupt);
        QCOMPARE(m_files->writeCount(), 0);

        const StickyNote added = text(u"new"_s);
        store.save(added);
        QVERIFY(manifest() == std::vector{added});
        QCOMPARE(m_files->read(root + u"/manifest.corrupt.json"_s), corrupt);
    }

    void failingFoldersAndFilesAreToleratedAtStart()
    {
        FakeFileSystem files;
        files.failFolders();
        files.failReads(manifestPath);
        QVERIFY(FileNotesStore(files, root).notes().empty());

        files.failRemovals();
        FileNotesStore store(files, root);
        store.remove(StickyNoteId::random());
    }

private:
    [[nodiscard]] static QString imagePath(const StickyNote& note)
    {
        return root + u"/images/"_s + note.id.text() + u".png"_s;
    }

    [[nodiscard]] std::vector<StickyNote> manifest() const
    {
        return *NotesManifest::decode(m_files->read(manifestPath).value_or("[]"));
    }

    std::unique_ptr<FakeFileSystem> m_files;
    std::unique_ptr<FileNotesStore> m_store;
};

DRIFTBOX_TEST(TestFileNotesStore, QCoreApplication)
#include "TestFileNotesStore.moc"
