#include "support/main/TestMain.h"
#include "unit/app/FakeDesktop.h"

#include "app/AppCoordinator.h"
#include "app/AppDelegate.h"
#include "markdown/MarkdownReaderCoordinator.h"
#include "markdown/MarkdownReaderWindowController.h"
#include "platform/InstanceLink.h"

#include <memory>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

// Reports the documents that a test gives it.
class FakeInstanceLink final : public InstanceLink
{
public:
    [[nodiscard]] Claim claim(const QList<QUrl>&) override { return Claim::first; }
};

QUrl file(const QString& name)
{
    return QUrl::fromLocalFile(u"/docs/"_s + name);
}

} // namespace

class TestAppDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QApplication::setQuitOnLastWindowClosed(true); // as every application begins
        m_desktop = std::make_unique<FakeDesktop>();
        for (const auto* name : {"a.MD", "b.markdown", "c.mdown", "d.mkd", "notes.txt"})
            m_desktop->fileSystem.setFile(u"/docs/"_s + QString::fromLatin1(name), "text");
        m_coordinator = std::make_unique<AppCoordinator>(m_desktop->services());
        m_link = std::make_unique<FakeInstanceLink>();
        m_delegate = std::make_unique<AppDelegate>(*m_coordinator, *m_link);
    }

    void cleanup()
    {
        m_delegate.reset();
        m_coordinator.reset();
        m_desktop.reset();
    }

    void markdownFilesOpenAndOthersAreIgnored()
    {
        launch();
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: a.MD, notes.txt");
        expectOpening("a.MD");
        Q_EMIT m_link->documentsOpened({file(u"a.MD"_s), file(u"notes.txt"_s)});
        QCOMPARE(names(), QStringList{u"a.MD"_s});
    }

    void everyMarkdownExtensionOpens()
    {
        launch();
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: b.markdown, c.mdown, d.mkd");
        for (const auto* name : {"b.markdown", "c.mdown", "d.mkd"})
            expectOpening(name);
        Q_EMIT m_link->documentsOpened(
            {file(u"b.markdown"_s), file(u"c.mdown"_s), file(u"d.mkd"_s)});
        QCOMPARE(names(), QStringList({u"b.markdown"_s, u"c.mdown"_s, u"d.mkd"_s}));
    }

    void fileGivenAtLaunchOpensAfterTheServicesStart()
    {
        expectLaunch();
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: a.MD");
        expectOpening("a.MD");
        m_delegate->applicationDidFinishLaunching({file(u"a.MD"_s)});
        QCOMPARE(names(), QStringList{u"a.MD"_s});
        QCOMPARE(m_desktop->standardWindows.presented.size(), size_t(1));
    }

    void urlsThatAreNotLocalFilesAreIgnored()
    {
        launch();
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: a.MD, d.mkd");
        expectOpening("a.MD");
        expectOpening("d.mkd");
        Q_EMIT m_link->documentsOpened({QUrl(), file(u"a.MD"_s), QUrl(u"no address"_s),
                                        QUrl(u"https://example.org/e.md"_s), file(u"d.mkd"_s)});
        QCOMPARE(names(), QStringList({u"a.MD"_s, u"d.mkd"_s}));
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: ");
        Q_EMIT m_link->documentsOpened({});
    }

    void folderIsLoggedButNotOpened()
    {
        launch();
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: docs, my docs#1");
        Q_EMIT m_link->documentsOpened({file(u""_s), QUrl(u"file:///x/my%20docs%231/"_s)});
        QVERIFY(names().isEmpty());
    }

    void closingTheLastReaderDoesNotQuitTheProgram()
    {
        launch();
        QTest::ignoreMessage(QtWarningMsg, "kAEOpenDocuments: a.MD");
        expectOpening("a.MD");
        Q_EMIT m_link->documentsOpened({file(u"a.MD"_s)});
        QVERIFY(m_desktop->standardWindows.presented.front()->close());
        QVERIFY(names().isEmpty());
        QVERIFY(!QApplication::quitOnLastWindowClosed());
    }

private:
    static void expectLaunch()
    {
        QTest::ignoreMessage(QtInfoMsg, "Monitor started");
        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
    }

    static void expectOpening(const char* name)
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
        QTest::ignoreMessage(QtInfoMsg, qPrintable(u"Opened "_s + QString::fromLatin1(name)));
    }

    void launch()
    {
        expectLaunch();
        m_delegate->applicationDidFinishLaunching({});
    }

    // Of the files that are open.
    [[nodiscard]] QStringList names() const
    {
        QStringList found;
        for (const auto& [url, controller] : m_coordinator->markdownReader().controllers())
            found << url.fileName();
        found.sort();
        return found;
    }

    std::unique_ptr<FakeDesktop> m_desktop;
    std::unique_ptr<AppCoordinator> m_coordinator;
    std::unique_ptr<FakeInstanceLink> m_link;
    std::unique_ptr<AppDelegate> m_delegate;
};

DRIFTBOX_TEST(TestAppDelegate, QApplication)
#include "TestAppDelegate.moc"
