#include "markdown/MarkdownReaderCoordinator.h"

#include "fakes/FakeFileSystem.h"
#include "fakes/FakeMarkdownReaderWindowFactory.h"
#include "markdown/MarkdownFiles.h"
#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/MarkdownReaderWindowController.h"
#include "support/main/TestMain.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestMarkdownReaderCoordinator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_coordinator.reset();
        m_files = std::make_unique<FakeFileSystem>();
        m_files->setFile(u"/a/doc.md"_s, "text");
        m_windows = std::make_unique<FakeMarkdownReaderWindowFactory>();
        m_panel = std::make_unique<FakeMarkdownOpenPanel>();
        m_coordinator = std::make_unique<MarkdownReaderCoordinator>(
            MarkdownReaderCoordinator::Services{*m_files, *m_windows, *m_panel});
    }

    void everyFileOpensInItsOwnWindow()
    {
        open(u"/a/doc.md"_s);
        QCOMPARE(m_windows->windows.size(), size_t(1));
        QCOMPARE(m_windows->windows.front()->presented, 1);
        QCOMPARE(document(u"/a/doc.md"_s).markdown(), u"text"_s);
        m_files->setFile(u"/a/other.md"_s, "other");
        open(u"/a/other.md"_s);
        QCOMPARE(m_windows->windows.size(), size_t(2));
    }

    void equivalentPathsShareAWindow_data()
    {
        QTest::addColumn<QUrl>("other");
        QTest::newRow("dots") << QUrl(u"file:///a/b/../doc.md"_s);
        QTest::newRow("dot") << QUrl(u"file:///a/./doc.md"_s);
        QTest::newRow("separators") << QUrl(u"file:///a//doc.md"_s);
        QTest::newRow("percent encoding") << QUrl(u"file:///a/%64oc.md"_s);
        QTest::newRow("fragment") << QUrl(u"file:///a/doc.md#part"_s);
    }

    void equivalentPathsShareAWindow()
    {
        QFETCH(QUrl, other);
        open(u"/a/doc.md"_s);
        m_coordinator->open(other); // no "Opened" line
        QCOMPARE(m_windows->windows.size(), size_t(1));
        QCOMPARE(m_windows->windows.front()->presented, 2);
    }

    void documentIsNamedByItsNormalizedPath()
    {
        QTest::ignoreMessage(QtInfoMsg, "Opened doc.md");
        m_coordinator->open(QUrl(u"file:///a/b/../doc.md"_s));
        QCOMPARE(document(u"/a/doc.md"_s).fileURL(), QUrl::fromLocalFile(u"/a/doc.md"_s));
    }

    void raisingKeepsUnsavedEditsAndDoesNotReload()
    {
        open(u"/a/doc.md"_s);
        document(u"/a/doc.md"_s).setMarkdown(u"typed"_s);
        m_files->setFile(u"/a/doc.md"_s, "changed by others");
        m_coordinator->open(QUrl::fromLocalFile(u"/a/doc.md"_s));
        QCOMPARE(document(u"/a/doc.md"_s).markdown(), u"typed"_s);
        QVERIFY(document(u"/a/doc.md"_s).hasUnsavedChanges());
        QCOMPARE(m_files->readCount(u"/a/doc.md"_s), 1);
    }

    void closingSavesAndForgetsTheWindow()
    {
        open(u"/a/doc.md"_s);
        document(u"/a/doc.md"_s).setMarkdown(u"typed"_s);
        QVERIFY(close());
        QCOMPARE(m_files->read(u"/a/doc.md"_s), QByteArray("typed"));
        QVERIFY(m_coordinator->controllers().empty());
        QVERIFY(m_windows->windows.empty());

        open(u"/a/doc.md"_s);
        QCOMPARE(document(u"/a/doc.md"_s).markdown(), u"typed"_s);
    }

    void windowClosesEvenIfSavingFails()
    {
        open(u"/a/doc.md"_s);
        document(u"/a/doc.md"_s).setMarkdown(u"typed"_s);
        m_files->failWrites(u"No space left on device"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Save failed for doc.md: No space left on device");
        QVERIFY(close());
        QVERIFY(m_coordinator->controllers().empty());
    }

    void fileCanBeReopenedWhileItsWindowIsClosing()
    {
        open(u"/a/doc.md"_s);
        QVERIFY(m_windows->windows.front()->shouldClose());
        open(u"/a/doc.md"_s);
        QTRY_COMPARE(m_windows->windows.size(), size_t(1));
        QCOMPARE(m_coordinator->controllers().size(), size_t(1));
    }

    void closingWindowIsDestroyedWithTheCoordinator()
    {
        open(u"/a/doc.md"_s);
        QVERIFY(m_windows->windows.front()->shouldClose());
        QCOMPARE(m_windows->windows.size(), size_t(1));
        m_coordinator.reset();
        QVERIFY(m_windows->windows.empty());
    }

    void unreadableFileStillOpens()
    {
        QTest::ignoreMessage(QtCriticalMsg, "Could not read gone.md");
        open(u"/a/gone.md"_s);
        QCOMPARE(m_windows->windows.size(), size_t(1));
        QCOMPARE(document(u"/a/gone.md"_s).markdown(), QString());
    }

    void unsavedEditsAreSavedOnExit()
    {
        open(u"/a/doc.md"_s);
        document(u"/a/doc.md"_s).setMarkdown(u"typed"_s);
        m_coordinator.reset();
        QCOMPARE(m_files->read(u"/a/doc.md"_s), QByteArray("typed"));
        QVERIFY(m_windows->windows.empty());
    }

    void openPanelOpensTheChosenFiles()
    {
        m_coordinator->openViaPanel();
        QCOMPARE(m_panel->runs, 1);
        QVERIFY(m_windows->windows.empty()); // canceled so far
        QTest::ignoreMessage(QtInfoMsg, "Opened doc.md");
        m_panel->chosen(QUrl::fromLocalFile(u"/a/doc.md"_s));
        QCOMPARE(m_windows->windows.size(), size_t(1));
        m_coordinator.reset();
        m_panel->chosen(QUrl::fromLocalFile(u"/a/doc.md"_s)); // too late
    }

    void linkOpensAnotherDocument()
    {
        m_files->setFile(u"/a/other.md"_s, "other");
        open(u"/a/doc.md"_s);
        QTest::ignoreMessage(QtInfoMsg, "Opened other.md");
        m_windows->windows.front()->openDocument(QUrl::fromLocalFile(u"/a/other.md"_s));
        QCOMPARE(m_windows->windows.size(), size_t(2));
    }

    void linkWithAFragmentScrollsNewAndOpenWindows()
    {
        const QUrl part(u"file:///a/./doc.md#%C3%BCber"_s);
        QTest::ignoreMessage(QtInfoMsg, "Opened doc.md");
        m_coordinator->open(part);
        QCOMPARE(m_windows->windows.size(), size_t(1));
        const ReadingPlace place{.fragment = u"%C3%BCber"_s};
        QCOMPARE(m_windows->windows.front()->places, std::vector{place});
        m_coordinator->open(part);
        QCOMPARE(m_windows->windows.size(), size_t(1));
        QCOMPARE(m_windows->windows.front()->places, std::vector(2, place));
        QCOMPARE(m_windows->windows.front()->presented, 2);
        m_coordinator->open(QUrl::fromLocalFile(u"/a/doc.md"_s));
        QCOMPARE(m_windows->windows.front()->places.size(), size_t(2));
    }

    void recognizesMarkdownFileExtensions_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<bool>("expected");
        for (const auto* name : {"a.md", "a.MD", "a.markdown", "a.mdown", "a.mkd", "a.b.Md"})
            QTest::newRow(name) << QUrl::fromLocalFile(u"/x/"_s + QString::fromLatin1(name))
                                << true;
        for (const auto* name : {"a.txt", "md", "a.md.txt", "a.md~", "a.mdx", "a."})
            QTest::newRow(name) << QUrl::fromLocalFile(u"/x/"_s + QString::fromLatin1(name))
                                << false;
    }

    void recognizesMarkdownFileExtensions()
    {
        QFETCH(QUrl, url);
        QTEST(isMarkdownFile(url), "expected");
    }

private:
    void open(const QString& path)
    {
        QTest::ignoreMessage(QtInfoMsg,
                             qPrintable(u"Opened "_s + path.mid(path.lastIndexOf(u'/') + 1)));
        m_coordinator->open(QUrl::fromLocalFile(path));
    }

    // Closes the window like the user does; whether it is gone then.
    bool close()
    {
        const bool closes = m_windows->windows.front()->shouldClose();
        return closes && QTest::qWaitFor([this] { return m_windows->windows.empty(); });
    }

    MarkdownReaderViewModel& document(const QString& path)
    {
        return m_coordinator->controllers().at(QUrl::fromLocalFile(path))->viewModel();
    }

    std::unique_ptr<FakeFileSystem> m_files;
    std::unique_ptr<FakeMarkdownReaderWindowFactory> m_windows;
    std::unique_ptr<FakeMarkdownOpenPanel> m_panel;
    std::unique_ptr<MarkdownReaderCoordinator> m_coordinator;
};

DRIFTBOX_TEST(TestMarkdownReaderCoordinator, QCoreApplication)
#include "TestMarkdownReaderCoordinator.moc"
