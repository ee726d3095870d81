#include "markdown/MarkdownWebViewCoordinator.h"

#include "fakes/FakeDocumentOpener.h"
#include "support/main/TestMain.h"

#include <vector>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

// Records what it is asked to render.
class RecordingPage final : public MarkdownPage
{
public:
    void load(const QByteArray&, const QUrl&) override {}
    void renderMarkdown(const QString& text, const QString& theme) override
    {
        renders << text + u'|' + theme;
    }
    void showPlace(const ReadingPlace& place) override { places.push_back(place); }

    QStringList renders;
    std::vector<ReadingPlace> places;
};

} // namespace

class TestMarkdownWebViewCoordinator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_opener = std::make_unique<FakeDocumentOpener>();
        m_page = std::make_unique<RecordingPage>();
        m_documents.clear();
        m_coordinator = std::make_unique<MarkdownWebViewCoordinator>(
            *m_opener, [this](const QUrl& url) { m_documents << url; });
        m_coordinator->setPage(m_page.get());
    }

    void nothingIsPendingInitially()
    {
        QVERIFY(!m_coordinator->isReady());
        QCOMPARE(m_coordinator->pendingMarkdown(), QString());
        QCOMPARE(m_coordinator->pendingTheme(), u"light"_s);
    }

    void lastPushWinsBeforeThePageIsReady()
    {
        m_coordinator->push(u"a"_s, u"light"_s);
        m_coordinator->push(u"b"_s, u"dark"_s);
        turn();
        QCOMPARE(m_page->renders, QStringList());
        m_coordinator->didFinishNavigation();
        QVERIFY(m_coordinator->isReady());
        QCOMPARE(m_page->renders, QStringList()); // on the next turn
        turn();
        QCOMPARE(m_page->renders, {u"b|dark"_s});
    }

    void everyPushRendersInOrderOnceThePageIsReady()
    {
        m_coordinator->didFinishNavigation();
        m_coordinator->push(u"a"_s, u"light"_s);
        m_coordinator->push(u"a"_s, u"dark"_s);
        turn();
        QCOMPARE(m_page->renders, QStringList({u"|light"_s, u"a|light"_s, u"a|dark"_s}));
    }

    void reloadRendersAgain()
    {
        m_coordinator->push(u"a"_s, u"dark"_s);
        m_coordinator->didFinishNavigation();
        m_coordinator->didFinishNavigation();
        turn();
        QCOMPARE(m_page->renders, QStringList({u"a|dark"_s, u"a|dark"_s}));
    }

    void destroyedPageIsNotCalled()
    {
        m_coordinator->didFinishNavigation();
        m_coordinator->setPage(nullptr);
        turn();
        QCOMPARE(m_page->renders, QStringList());
    }

    void webLinksOpenInTheirPrograms()
    {
        const QStringList links{u"https://example.org/a?b=c#d"_s, u"http://example.org"_s,
                                u"mailto:ada@example.org"_s};
        for (const QString& link : links)
            m_coordinator->didReceiveMessage(u"openExternal"_s, link);
        QCOMPARE(QUrl::toStringList(m_opener->opened), links);
    }

    void markdownFilesOpenInAReader()
    {
        m_coordinator->didReceiveMessage(u"openExternal"_s,
                                         u"file:///x/other%20file.MD?raw#part"_s);
        QCOMPARE(m_documents, {QUrl(u"file:///x/other%20file.MD#part"_s)});
        QVERIFY(m_opener->opened.isEmpty());
    }

    void readingPlaceIsRestoredAfterEveryLoad()
    {
        m_coordinator->showPlace({.fragment = u"part"_s});
        m_coordinator->push(u"a"_s, u"light"_s);
        QCoreApplication::processEvents();
        QCOMPARE(m_page->places.size(), size_t(0));
        m_coordinator->didFinishNavigation();
        QCoreApplication::processEvents();
        QCOMPARE(m_page->places, std::vector{ReadingPlace{.fragment = u"part"_s}});
        m_coordinator->didReceiveMessage(
            u"readingPosition"_s,
            QVariantMap{{u"line"_s, 7}, {u"offset"_s, -2.5}, {u"sourceLine"_s, 9}});
        const ReadingPlace told{.line = 7, .offset = -2.5, .sourceLine = 9};
        QCOMPARE(m_coordinator->place(), told);
        QCOMPARE(m_page->places.size(), size_t(1)); // the page knows its own place
        m_coordinator->didFinishNavigation();
        QCoreApplication::processEvents();
        QCOMPARE(m_page->places.back(), told);
    }

    void invalidReadingPlacesAreCorrected()
    {
        for (const QVariant& body :
             {QVariant(), QVariant(u"x"_s), QVariant(QVariantMap{{u"line"_s, -5}}),
              QVariant(QVariantMap{{u"line"_s, u"x"_s}, {u"sourceLine"_s, 1e30}})}) {
            m_coordinator->didReceiveMessage(u"readingPosition"_s,
                                             QVariantMap{{u"line"_s, 7}, {u"sourceLine"_s, 9}});
            m_coordinator->didReceiveMessage(u"readingPosition"_s, body);
            QCOMPARE(m_coordinator->place().line, 0);
            QVERIFY(m_coordinator->place().sourceLine >= 0);
        }
    }

    void otherFilesOpenInTheirDefaultPrograms()
    {
        m_coordinator->didReceiveMessage(u"openExternal"_s, u"file:///x/sheet.pdf#page=2"_s);
        QCOMPARE(m_opener->opened, {QUrl::fromLocalFile(u"/x/sheet.pdf"_s)});
    }

    void executablesAreRevealedInsteadOfRun_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("executable");
        QTest::newRow("program") << u"run.sh"_s << true;
        QTest::newRow("desktop entry") << u"evil.desktop"_s << false;
        QTest::newRow("desktop entry in capitals") << u"evil.Desktop"_s << false;
    }

    void executablesAreRevealedInsteadOfRun()
    {
        QFETCH(QString, name);
        QFETCH(bool, executable);
        const QTemporaryDir folder;
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        if (executable)
            QVERIFY(file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeUser));
        const QUrl url = QUrl::fromLocalFile(file.fileName());
        m_coordinator->didReceiveMessage(u"openExternal"_s, url.toString());
        QVERIFY(m_opener->opened.isEmpty());
        QCOMPARE(m_opener->revealed, {url});
    }

    void otherMessagesAreIgnored_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("body");
        const QString open = u"openExternal"_s;
        QTest::newRow("another message") << u"openInternal"_s << QVariant(u"https://a.org"_s);
        QTest::newRow("a number") << open << QVariant(1);
        QTest::newRow("nothing") << open << QVariant();
        QTest::newRow("a list") << open << QVariant(QStringList{u"https://a.org"_s});
        QTest::newRow("no address") << open << QVariant(u"http://[bad"_s);
        QTest::newRow("empty") << open << QVariant(QString());
        QTest::newRow("a script") << open << QVariant(u"javascript:alert(1)"_s);
        QTest::newRow("data") << open << QVariant(u"data:text/html,x"_s);
        QTest::newRow("an unknown scheme") << open << QVariant(u"steam://run/1"_s);
        QTest::newRow("a relative path") << open << QVariant(u"other.md"_s);
        QTest::newRow("a file elsewhere") << open << QVariant(u"file://server/share/a.md"_s);
    }

    void otherMessagesAreIgnored()
    {
        QFETCH(QString, name);
        QFETCH(QVariant, body);
        m_coordinator->didReceiveMessage(name, body);
        QVERIFY(m_opener->opened.isEmpty());
        QVERIFY(m_opener->revealed.isEmpty());
        QVERIFY(m_documents.isEmpty());
    }

private:
    static void turn() { QCoreApplication::processEvents(); }

    std::unique_ptr<FakeDocumentOpener> m_opener;
    std::unique_ptr<RecordingPage> m_page;
    QList<QUrl> m_documents;
    std::unique_ptr<MarkdownWebViewCoordinator> m_coordinator;
};

DRIFTBOX_TEST(TestMarkdownWebViewCoordinator, QCoreApplication)
#include "TestMarkdownWebViewCoordinator.moc"
