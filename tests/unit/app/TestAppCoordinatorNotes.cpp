#include "support/main/TestMain.h"
#include "unit/app/FakeDesktop.h"

#include "app/AppCoordinator.h"
#include "clipboard/ClipboardManifest.h"
#include "core/AppConfig.h"
#include "core/JsonRecords.h"
#include "notes/NoteManager.h"
#include "notes/NotesManifest.h"
#include "ui/list/RowListView.h"

#include <memory>

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

// What is logged while it lives, each line with its category.
class LogLines
{
public:
    LogLines()
    {
        s_lines.clear();
        m_before = qInstallMessageHandler(&LogLines::keep);
    }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    ~LogLines() { qInstallMessageHandler(m_before); }

    [[nodiscard]] static const QStringList& lines() { return s_lines; }

private:
    static void keep(QtMsgType, const QMessageLogContext& context, const QString& message)
    {
        s_lines << QString::fromLatin1(context.category) + u": "_s + message;
    }

    inline static QStringList s_lines;
    QtMessageHandler m_before;
};

} // namespace

class TestAppCoordinatorNotes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desktop = std::make_unique<FakeDesktop>();
        m_coordinator = std::make_unique<AppCoordinator>(m_desktop->services());
    }

    void cleanup()
    {
        m_coordinator.reset();
        m_desktop.reset();
    }

    void notesAreTheSecondSection()
    {
        start();
        const auto& sections = m_coordinator->registry().sections();
        QCOMPARE(sections.size(), size_t(2));
        QCOMPARE(sections[0]->id(), u"clipboard"_s);
        QCOMPARE(sections[1]->id(), u"notes"_s);
        QCOMPARE(sections[1]->title(), u"Notes"_s);
        QCOMPARE(sections[1]->systemImage(), u"note.text"_s);
        QCOMPARE(m_coordinator->registry().activeID(), u"clipboard"_s);
    }

    void notesServicesAreCreatedOnceAndUseTheirOwnFolder()
    {
        QCOMPARE(&m_coordinator->notesStore(), &m_coordinator->notesStore());
        QCOMPARE(&m_coordinator->noteManager(), &m_coordinator->noteManager());
        QVERIFY(m_desktop->fileSystem.folderExists(root() + u"/notes/images"_s));
    }

    void startLoadsSavedNotesBetweenMonitorAndHotkey()
    {
        m_desktop->fileSystem.setFile(
            root() + u"/notes/manifest.json"_s,
            JsonRecords::join({NotesManifest::encode({.textContent = u"a"_s, .isSaved = true})}));
        const LogLines log;
        m_coordinator->start();
        QCOMPARE(LogLines::lines(),
                 QStringList({u"ClipboardMonitor: Monitor started"_s,
                              u"NoteManager: Loaded 1 saved note(s); windows left closed"_s,
                              u"HotkeyManager: Hotkey monitors installed"_s}));
        QCOMPARE(m_coordinator->noteManager().notes().size(), size_t(1));
        QCOMPARE(m_desktop->localKeys.monitorCount(), size_t(1));
        QVERIFY(m_desktop->floatingSurfaces.surfaces.empty());
    }

    void textBecomesANoteWithItsText_data()
    {
        QTest::addColumn<std::optional<QString>>("text");
        QTest::newRow("text") << std::optional(u"copied\ntext"_s);
        QTest::newRow("without text") << std::optional<QString>();
    }
    void textBecomesANoteWithItsText()
    {
        QFETCH(const std::optional<QString>, text);
        expectWindow();
        makeNoteOf({.textContent = text});
        QCOMPARE(notes().size(), size_t(1));
        QCOMPARE(notes().front().kind, StickyNote::Kind::text);
        QCOMPARE(notes().front().textContent, text.value_or(u""_s));
        QVERIFY(m_coordinator->noteManager().isOpen(notes().front().id));
    }

    void pictureBecomesANoteWithItsBytes()
    {
        const ClipboardItem item{.kind = ClipboardItem::Kind::image};
        m_desktop->fileSystem.setFile(root() + u"/images/"_s + item.id.text() + u".png"_s,
                                      "the bytes");
        expectWindow();
        makeNoteOf(item);
        expectImageNote("the bytes");
    }

    void pictureWithACustomFileNameIsFound()
    {
        const ClipboardItem item{.kind = ClipboardItem::Kind::image,
                                 .imageFileName = u"Shot.png"_s};
        m_desktop->fileSystem.setFile(root() + u"/images/"_s + item.id.text() + u".png"_s,
                                      "another picture");
        m_desktop->fileSystem.setFile(root() + u"/images/Shot.png"_s, "the bytes");
        expectWindow();
        makeNoteOf(item);
        expectImageNote("the bytes");
    }

    void unreadablePictureMakesNoNote()
    {
        makeNoteOf({.kind = ClipboardItem::Kind::image});
        QVERIFY(notes().empty());
        QVERIFY(m_desktop->floatingSurfaces.surfaces.empty());
    }

private:
    [[nodiscard]] static QString root() { return AppConfig::storage::defaultRootURL(); }
    [[nodiscard]] const std::vector<StickyNote>& notes() const
    {
        return m_coordinator->noteManager().notes();
    }

    void start()
    {
        QTest::ignoreMessage(QtInfoMsg, "Monitor started");
        QTest::ignoreMessage(QtInfoMsg, "Hotkey monitors installed");
        m_coordinator->start();
    }

    /// The offscreen platform does not support size hints.
    static void expectWindow()
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    }

    /// Starts with this entry in the history and uses its action.
    void makeNoteOf(const ClipboardItem& item)
    {
        m_desktop->fileSystem.setFile(root() + u"/manifest.json"_s,
                                      JsonRecords::join({ClipboardManifest::encode(item)}));
        start();
        QWidget window;
        const QWidget* page = m_coordinator->registry().sections().front()->makeRootView(&window);
        const QAccessibleInterface* row =
            QAccessible::queryAccessibleInterface(page->findChild<RowListView*>())->child(0);
        for (int i = 0; i < row->childCount(); ++i) {
            if (row->child(i)->text(QAccessible::Name) == u"Make a sticky note")
                row->child(i)->actionInterface()->doAction(
                    QAccessibleActionInterface::pressAction());
        }
    }

    void expectImageNote(const QByteArray& bytes)
    {
        QCOMPARE(notes().size(), size_t(1));
        const StickyNote& note = notes().front();
        QCOMPARE(note.kind, StickyNote::Kind::image);
        QVERIFY(m_coordinator->noteManager().isOpen(note.id));
        const QString path = root() + u"/notes/images/"_s + note.id.text() + u".png"_s;
        QCOMPARE(m_desktop->fileSystem.read(path), bytes);
    }

    std::unique_ptr<FakeDesktop> m_desktop;
    std::unique_ptr<AppCoordinator> m_coordinator;
};

DRIFTBOX_TEST(TestAppCoordinatorNotes, QApplication)
#include "TestAppCoordinatorNotes.moc"
