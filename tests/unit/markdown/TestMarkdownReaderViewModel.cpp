#include "markdown/MarkdownReaderViewModel.h"

#include "fakes/FakeFileSystem.h"
#include "support/main/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestMarkdownReaderViewModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_files = std::make_unique<FakeFileSystem>(); }

    void newDocumentIsEmptyAndReadsNothing()
    {
        m_files->setFile(path, "text");
        const MarkdownReaderViewModel document(url, *m_files);
        QCOMPARE(document.fileURL(), url);
        QCOMPARE(document.displayName(), u"doc.md"_s);
        QCOMPARE(document.markdown(), QString());
        QVERIFY(!document.hasUnsavedChanges());
        QVERIFY(!document.isEditing());
        QVERIFY(!document.isLoading());
        QCOMPARE(m_files->readCount(path), 0);
    }

    void loadingKeepsTheTextUnchanged()
    {
        m_files->setFile(path, "# Grüße\r\n\xE2\x80\xA8"
                               "end");
        MarkdownReaderViewModel document(url, *m_files);
        const QSignalSpy unsaved(&document, &MarkdownReaderViewModel::hasUnsavedChangesChanged);
        const QSignalSpy loading(&document, &MarkdownReaderViewModel::isLoadingChanged);
        document.load();
        QCOMPARE(document.markdown(), u"# Grüße\r\n\u2028end"_s);
        QVERIFY(!document.hasUnsavedChanges());
        QCOMPARE(unsaved.count(), 0);
        QCOMPARE(loading.count(), 2);
        QVERIFY(!document.isLoading());
    }

    void assignmentWhileLoadingDoesNotMarkTheDocumentAsEdited()
    {
        m_files->setFile(path, "text");
        MarkdownReaderViewModel document(url, *m_files);
        connect(&document, &MarkdownReaderViewModel::markdownChanged, &document, [&document] {
            QVERIFY(document.isLoading());
            if (document.markdown() == u"text")
                document.setMarkdown(u"other"_s);
        });
        document.load();
        QCOMPARE(document.markdown(), u"other"_s);
        QVERIFY(!document.hasUnsavedChanges());
    }

    void reloadingDiscardsTheChanges()
    {
        m_files->setFile(path, "text");
        MarkdownReaderViewModel document(url, *m_files);
        document.setMarkdown(u"typed"_s);
        document.load();
        QCOMPARE(document.markdown(), u"text"_s);
        QVERIFY(!document.hasUnsavedChanges());
    }

    void emptyFileIsAnEmptyUnmodifiedDocument()
    {
        m_files->setFile(path, "");
        MarkdownReaderViewModel document(url, *m_files);
        document.load();
        QCOMPARE(document.markdown(), QString());
        QVERIFY(!document.hasUnsavedChanges());
    }

    void invalidUtf8IsReadAsLatin1AndSavedAsUtf8()
    {
        m_files->setFile(path, "caf\xE9");
        MarkdownReaderViewModel document(url, *m_files);
        QTest::ignoreMessage(QtCriticalMsg, "Read doc.md as Latin-1 (not UTF-8)");
        document.load();
        QCOMPARE(document.markdown(), u"café"_s);
        QVERIFY(!document.hasUnsavedChanges());
        document.setMarkdown(u"café!"_s);
        QVERIFY(document.save());
        QCOMPARE(m_files->read(path), QByteArray("caf\xC3\xA9!"));
    }

    void truncatedUtf8SequenceAtTheEndMeansLatin1()
    {
        m_files->setFile(path, "a\xC3");
        MarkdownReaderViewModel document(url, *m_files);
        QTest::ignoreMessage(QtCriticalMsg, "Read doc.md as Latin-1 (not UTF-8)");
        document.load();
        QCOMPARE(document.markdown(), u"aÃ"_s);
    }

    void byteOrderMarkAndNullBytesArePreserved()
    {
        const QByteArray bytes("\xEF\xBB\xBF# a\0b", 7);
        m_files->setFile(path, bytes);
        MarkdownReaderViewModel document(url, *m_files);
        document.load();
        document.setMarkdown(document.markdown());
        QVERIFY(document.save());
        QCOMPARE(m_files->read(path), bytes);
    }

    void unreadableFileIsAnEmptyUnmodifiedDocument()
    {
        m_files->setFile(path, "secret");
        m_files->failReads(path);
        MarkdownReaderViewModel document(url, *m_files);
        document.setMarkdown(u"before"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Could not read doc.md");
        document.load();
        QCOMPARE(document.markdown(), QString());
        QVERIFY(!document.hasUnsavedChanges());
        QVERIFY(!document.isLoading());
    }

    void missingFileIsCreatedOnlyOnceTextIsTyped()
    {
        m_files->createFolder(u"/docs"_s);
        MarkdownReaderViewModel document(url, *m_files);
        QTest::ignoreMessage(QtCriticalMsg, "Could not read doc.md");
        document.load();
        document.toggleEdit();
        document.toggleEdit();
        QVERIFY(!m_files->exists(path));
        document.toggleEdit();
        document.setMarkdown(u"new"_s);
        document.toggleEdit();
        QCOMPARE(m_files->read(path), QByteArray("new"));
        QVERIFY(!document.hasUnsavedChanges());
    }

    void observersAreNotifiedOfChanges()
    {
        MarkdownReaderViewModel document(url, *m_files);
        const QSignalSpy text(&document, &MarkdownReaderViewModel::markdownChanged);
        const QSignalSpy unsaved(&document, &MarkdownReaderViewModel::hasUnsavedChangesChanged);
        document.setMarkdown(QString()); // the same text marks the document, too
        QCOMPARE(text.count(), 0);
        QCOMPARE(unsaved.count(), 1);
        QVERIFY(document.hasUnsavedChanges());
        document.setMarkdown(u"a"_s);
        document.setMarkdown(u"a"_s);
        document.setMarkdown(u"b"_s);
        QCOMPARE(text.count(), 2);
        QCOMPARE(unsaved.count(), 1);
    }

    void savingAnUnmodifiedDocumentWritesNothing()
    {
        m_files->setFile(path, "text");
        MarkdownReaderViewModel document(url, *m_files);
        document.load();
        QVERIFY(document.save());
        QCOMPARE(m_files->writeCount(path), 0);
    }

    void failedSaveKeepsTheEditedMarkAndIsRetried()
    {
        m_files->setFile(path, "old");
        MarkdownReaderViewModel document(url, *m_files);
        document.load();
        document.setMarkdown(u"new"_s);
        m_files->failWrites(u"No space left on device"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Save failed for doc.md: No space left on device");
        QVERIFY(!document.save());
        QVERIFY(document.hasUnsavedChanges());
        QCOMPARE(document.markdown(), u"new"_s);
        QCOMPARE(m_files->read(path), QByteArray("old"));
        m_files->succeed();
        QVERIFY(document.save());
        QCOMPARE(m_files->read(path), QByteArray("new"));
    }

    void leavingTheEditorShowsThePreviewEvenIfSavingFails()
    {
        m_files->setFile(path, "old");
        MarkdownReaderViewModel document(url, *m_files);
        document.load();
        const QSignalSpy mode(&document, &MarkdownReaderViewModel::isEditingChanged);
        document.toggleEdit();
        QVERIFY(document.isEditing());
        QCOMPARE(m_files->writeCount(path), 0);
        document.setMarkdown(u"new"_s);
        m_files->failWrites(u"Read-only file system"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Save failed for doc.md: Read-only file system");
        document.toggleEdit();
        QVERIFY(!document.isEditing());
        QVERIFY(document.hasUnsavedChanges());
        QCOMPARE(mode.count(), 2);
    }

    void nameIsTheUnmodifiedLastPathComponent()
    {
        QCOMPARE(MarkdownReaderViewModel(QUrl(), *m_files).displayName(), QString());
        QCOMPARE(MarkdownReaderViewModel(QUrl::fromLocalFile(u"/a/b%20 #?.md"_s), *m_files)
                     .displayName(),
                 u"b%20 #?.md"_s);
    }

private:
    const QString path = u"/docs/doc.md"_s;
    const QUrl url = QUrl::fromLocalFile(path);
    std::unique_ptr<FakeFileSystem> m_files;
};

DRIFTBOX_TEST(TestMarkdownReaderViewModel, QCoreApplication)
#include "TestMarkdownReaderViewModel.moc"
