#include "support/main/TestMain.h"
#include "unit/clipboard/ClipboardHistory.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestClipboardViewModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_history = std::make_unique<ClipboardHistory>(); }

    void capturesAreInsertedAtTheFront()
    {
        const QSignalSpy changed(&viewModel(), &ClipboardViewModel::itemsChanged);
        const ClipboardItem rich = m_history->copy({.text = u"a"_s, .rtf = QByteArray("{}")});
        QCOMPARE(changed.count(), 1);
        QCOMPARE(rich.kind, ClipboardItem::Kind::text);
        QCOMPARE(rich.textContent, u"a"_s);
        QCOMPARE(rich.rtfData, QByteArray("{}"));
        QCOMPARE(rich.createdAt, m_history->clock.now());
        QVERIFY(!rich.isPinned() && !rich.imageFileName);

        const ClipboardItem image = m_history->copy({.text = u"b"_s, .png = QByteArray("PNG")});
        QCOMPARE(image.kind, ClipboardItem::Kind::image);
        QVERIFY(!image.textContent && !image.rtfData && !image.imageFileName);
        QCOMPARE(m_history->files.read(m_history->store.imageURL(image)), QByteArray("PNG"));
        QCOMPARE(m_history->texts(), QStringList({u"(image)"_s, u"a"_s}));
    }

    void capacityIsEnforcedOnTheNextCapture()
    {
        for (const QChar letter : u"abcdefg"_s)
            m_history->copy(QString(letter));
        viewModel().togglePin(viewModel().items().back());
        m_history->settings.setClipboardCapacity(5);
        QCOMPARE(viewModel().items().size(), size_t(7));

        m_history->copy(u"h"_s);
        QCOMPARE(m_history->texts(), QStringList({u"h"_s, u"g"_s, u"f"_s, u"e"_s, u"d"_s, u"a"_s}));
        QCOMPARE(viewModel().pinnedCount(), 1);
        QCOMPARE(viewModel().unpinnedCount(), 5);

        m_history->settings.setClipboardCapacity(0);
        m_history->pasteboard.copy({.text = u"i"_s});
        m_history->monitor.tick();
        QCOMPARE(m_history->texts(), QStringList(u"a"_s));
    }

    void blankQueryShowsAllAndOthersOnlyMatchingTexts()
    {
        m_history->copy(u"Straße nach Zürich"_s);
        viewModel().togglePin(m_history->copy({.png = QByteArray("PNG")}));
        m_history->copy(u"second line\nof ZÜRICH"_s);
        const QStringList all = m_history->texts();
        QCOMPARE(all.size(), 3);

        const QSignalSpy changed(&viewModel(), &ClipboardViewModel::queryChanged);
        viewModel().setQuery(u" \n\t "_s);
        QCOMPARE(m_history->texts(), all);
        viewModel().setQuery(u"  zürich "_s);
        QCOMPARE(m_history->texts(), QStringList({all[0], all[2]}));
        viewModel().setQuery(u"zürich nach"_s);
        QVERIFY(m_history->texts().isEmpty());
        viewModel().setQuery(u"zürich nach"_s);
        QCOMPARE(changed.count(), 3);
    }

    void copyingBackMovesToTheFrontAndIsNotCapturedAgain()
    {
        const ClipboardItem first = m_history->copy({.text = u"a"_s, .rtf = QByteArray("{}")});
        m_history->copy(u"b"_s);
        viewModel().copyBack(first);
        QVERIFY(m_history->pasteboard.content() ==
                (PasteboardContent{.text = u"a"_s, .rtf = QByteArray("{}")}));
        m_history->monitor.tick();
        QCOMPARE(m_history->texts(), QStringList({u"a"_s, u"b"_s}));
        QVERIFY(viewModel().items().front() == first);
        QVERIFY(m_history->posted.isEmpty());
    }

    void copyingBackAnImageGivesItsBytes()
    {
        const ClipboardItem image = m_history->copy({.png = QByteArray("PNG")});
        m_history->copy(u"b"_s);
        viewModel().copyBack(image);
        QVERIFY(m_history->pasteboard.content() == (PasteboardContent{.png = QByteArray("PNG")}));
        QCOMPARE(m_history->texts(), QStringList({u"(image)"_s, u"b"_s}));
    }

    void pickingRequestsThePasteEvenIfTheImageIsGone()
    {
        const ClipboardItem image = m_history->copy({.png = QByteArray("PNG")});
        m_history->copy(u"b"_s);
        m_history->files.remove(m_history->store.imageURL(image));
        viewModel().pick(image);
        QCOMPARE(m_history->pasteboard.writes, 0);
        QCOMPARE(m_history->texts(), QStringList({u"b"_s, u"(image)"_s}));
        QCOMPARE(m_history->posted.count(), 1);
        QCOMPARE(m_history->pasteRequest.objectName(), u"app.driftbox.panelPaste"_s);
    }

    void pastingAsPlainTextDropsTheRichText()
    {
        const ClipboardItem rich = m_history->copy({.text = u"a"_s, .rtf = QByteArray("{}")});
        m_history->copy(u"b"_s);
        viewModel().copyBackAsPlain(rich);
        QVERIFY(m_history->pasteboard.content() == (PasteboardContent{.text = u"a"_s}));
        QVERIFY(viewModel().items().front() == rich);
        QCOMPARE(m_history->posted.count(), 1);
    }

    void textInAnImageIsPastedAndNotKept()
    {
        const ClipboardItem image = m_history->copy({.png = QByteArray("PNG")});
        m_history->copy(u"b"_s);
        m_history->recognizer.texts.insert("PNG", u"read"_s);
        const QSignalSpy changed(&viewModel(), &ClipboardViewModel::ocrProcessingIdChanged);

        viewModel().pasteImageText(image);
        QCOMPARE(viewModel().ocrProcessingId(), image.id);
        QVERIFY(m_history->posted.isEmpty());
        m_history->tasks.runAll();
        QVERIFY(!viewModel().ocrProcessingId());
        QCOMPARE(changed.count(), 2);
        QVERIFY(m_history->pasteboard.content() == (PasteboardContent{.text = u"read"_s}));
        QCOMPARE(m_history->posted.count(), 1);
        m_history->monitor.tick();
        QCOMPARE(m_history->texts(), QStringList({u"b"_s, u"(image)"_s}));
    }

    void imageWithoutTextPastesNothing()
    {
        const ClipboardItem image = m_history->copy({.png = QByteArray("PNG")});
        viewModel().pasteImageText(image);
        m_history->tasks.runAll();
        QVERIFY(!viewModel().ocrProcessingId());
        QCOMPARE(m_history->pasteboard.writes, 0);
        QVERIFY(m_history->posted.isEmpty());
    }

    void recognizingTextItemsOrMissingFilesDoesNothing()
    {
        const ClipboardItem text = m_history->copy(u"a"_s);
        const ClipboardItem image = m_history->copy({.png = QByteArray("PNG")});
        m_history->files.remove(m_history->store.imageURL(image));
        viewModel().pasteImageText(text);
        viewModel().pasteImageText(image);
        QCOMPARE(m_history->tasks.pending(), size_t(0));
        QVERIFY(!viewModel().ocrProcessingId());
    }

    void firstOfTwoRecognitionsToFinishEndsTheBusyState()
    {
        const ClipboardItem first = m_history->copy({.png = QByteArray("1")});
        const ClipboardItem second = m_history->copy({.png = QByteArray("22")});
        m_history->recognizer.texts = {{"1", u"one"_s}, {"22", u"two"_s}};
        viewModel().pasteImageText(first);
        viewModel().pasteImageText(second);
        QCOMPARE(viewModel().ocrProcessingId(), second.id);
        m_history->tasks.runNext();
        QVERIFY(!viewModel().ocrProcessingId());
        m_history->tasks.runNext();
        QCOMPARE(m_history->pasteboard.content().text, u"two"_s);
        QCOMPARE(m_history->posted.count(), 2);
    }

    void pinIsToggled()
    {
        viewModel().togglePin(m_history->copy(u"a"_s));
        QCOMPARE(viewModel().items().front().pinnedAt, m_history->clock.now());
        QCOMPARE(viewModel().pinnedCount(), 1);
        viewModel().togglePin(viewModel().items().front());
        QCOMPARE(viewModel().unpinnedCount(), 1);
    }

    void picturesAreCachedAtTheirDisplaySize()
    {
        const ClipboardItem large = m_history->copy({.png = picture({3840, 2160})});
        const ClipboardItem small = m_history->copy({.png = picture({30, 20})});
        const QSignalSpy changed(&viewModel(), &ClipboardViewModel::imageChanged);
        QVERIFY(viewModel().image(large).isNull());
        QVERIFY(viewModel().image(large).isNull()); // asked for once
        QVERIFY(viewModel().image(small).isNull());
        QCOMPARE(m_history->tasks.pending(), size_t(2));
        m_history->tasks.runAll();
        QCOMPARE(changed.count(), 2);
        QCOMPARE(viewModel().image(large).size(), QSize(106, 60));
        QCOMPARE(viewModel().image(small).size(), QSize(30, 20));

        m_history->thumbnails.setPixelRatio(2);
        QVERIFY(viewModel().image(large).isNull());
        m_history->tasks.runAll();
        QCOMPARE(viewModel().image(large).size(), QSize(213, 120));
        QCOMPARE(viewModel().image(large).devicePixelRatio(), 2.0);
    }

    void unreadablePictureIsRetried()
    {
        const ClipboardItem broken = m_history->copy({.png = QByteArray("no picture")});
        const QSignalSpy changed(&viewModel(), &ClipboardViewModel::imageChanged);
        for (int attempt = 0; attempt < 2; ++attempt) {
            QVERIFY(viewModel().image(broken).isNull());
            QCOMPARE(m_history->tasks.pending(), size_t(1));
            m_history->tasks.runAll();
        }
        QCOMPARE(changed.count(), 0);
        QVERIFY(viewModel().image(m_history->copy(u"text"_s)).isNull());
        QCOMPARE(m_history->tasks.pending(), size_t(0));
    }

    void deletingDropsOneCachedPictureAndClearingAll()
    {
        const ClipboardItem first = m_history->copy({.png = picture({10, 10})});
        viewModel().togglePin(m_history->copy({.png = picture({20, 10})}));
        const ClipboardItem pinned = viewModel().items().front();
        (void)viewModel().image(first);
        (void)viewModel().image(pinned);
        m_history->tasks.runAll();

        viewModel().remove(first);
        QCOMPARE(viewModel().items().size(), size_t(1));
        QVERIFY(!viewModel().image(pinned).isNull());
        viewModel().clearUnpinned();
        QCOMPARE(viewModel().items().size(), size_t(1));
        QVERIFY(viewModel().image(pinned).isNull());
        m_history->tasks.runAll();
        QVERIFY(!viewModel().image(pinned).isNull());
    }

    void pictureOfADeletedItemIsDropped()
    {
        const ClipboardItem item = m_history->copy({.png = picture({10, 10})});
        const QSignalSpy changed(&viewModel(), &ClipboardViewModel::imageChanged);
        (void)viewModel().image(item);
        viewModel().remove(item);
        m_history->tasks.runAll();
        QCOMPARE(changed.count(), 0);
    }

    void monitorMayOutliveTheViewModel()
    {
        ClipboardHistory history;
        {
            const ClipboardViewModel shortLived({history.store, history.monitor, history.settings,
                                                 history.pasteboardWriter, history.pasteRequest,
                                                 history.thumbnails, history.files, history.tasks,
                                                 history.recognizer, history.clock});
        }
        history.pasteboard.copy({.text = u"a"_s});
        history.monitor.tick();
        QVERIFY(history.store.allItems().empty());
    }

private:
    [[nodiscard]] ClipboardViewModel& viewModel() const { return m_history->viewModel; }

    std::unique_ptr<ClipboardHistory> m_history;
};

DRIFTBOX_TEST(TestClipboardViewModel, QGuiApplication)
#include "TestClipboardViewModel.moc"
