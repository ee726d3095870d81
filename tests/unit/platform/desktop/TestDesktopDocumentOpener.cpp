#include "platform/desktop/DesktopDocumentOpener.h"

#include "support/SessionBus.h"
#include "support/main/TestMain.h"

#include <QtDBus/QDBusConnection>
#include <QtGui/QDesktopServices>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

// A file manager on the bus.
class FileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList& uris, const QString& /*startupId*/) { shown << uris; }
};

} // namespace

class TestDesktopDocumentOpener : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_opened.clear();
        // Replaces the user's programs.
        for (const QString& scheme : {u"https"_s, u"mailto"_s, u"file"_s})
            QDesktopServices::setUrlHandler(scheme, this, "keep");
    }

    void cleanup()
    {
        for (const QString& scheme : {u"https"_s, u"mailto"_s, u"file"_s})
            QDesktopServices::unsetUrlHandler(scheme);
    }

    void urlsOpenInTheirPrograms()
    {
        DesktopDocumentOpener opener(QDBusConnection::sessionBus());
        for (const auto& url : {QUrl(u"https://example.org/a?b#c"_s), QUrl(u"mailto:a@b.org"_s),
                                QUrl::fromLocalFile(u"/a b.pdf"_s)})
            QVERIFY(opener.open(url));
        QCOMPARE(m_opened.size(), 3);
    }

    void fileManagerRevealsTheFile()
    {
        FileManager manager;
        auto bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerObject(u"/org/freedesktop/FileManager1"_s, &manager,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(u"org.freedesktop.FileManager1"_s));
        DesktopDocumentOpener(bus).reveal(QUrl::fromLocalFile(u"/x/a b#ü.md"_s));
        QTRY_COMPARE(manager.shown, QStringList{u"file:///x/a%20b%23%C3%BC.md"_s});
        QVERIFY(m_opened.isEmpty());
        QVERIFY(bus.unregisterService(u"org.freedesktop.FileManager1"_s));
        bus.unregisterObject(u"/org/freedesktop/FileManager1"_s);
    }

    void folderOpensWithoutAFileManager()
    {
        DesktopDocumentOpener opener(QDBusConnection::sessionBus());
        opener.reveal(QUrl::fromLocalFile(u"/x/y.md"_s));
        QTRY_COMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(u"/x/"_s)});
    }

public Q_SLOTS:
    void keep(const QUrl& url) { m_opened << url; }

private:
    QList<QUrl> m_opened;
};

static int runTestDesktopDocumentOpener(int argc, char** argv)
{
    const SessionBus bus(SessionBus::Services::none);
    const QGuiApplication application(argc, argv);
    TestDesktopDocumentOpener test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestDesktopDocumentOpener, runTestDesktopDocumentOpener)

#include "TestDesktopDocumentOpener.moc"
