#include "notes/NoteContent.h"
#include "notes/StickyNoteViewModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <limits>
#include <optional>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestStickyNoteViewModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desk.emplace();
        m_reported.clear();
    }
    void cleanup() { m_desk.reset(); }

    void startsWithTheValuesOfTheNote()
    {
        const StickyNote note{.textContent = u"text"_s, .color = NoteColor::green, .zoom = 1.5};
        const auto viewModel = make(note);
        QCOMPARE(viewModel->text(), u"text"_s);
        QCOMPARE(viewModel->color(), NoteColor::green);
        QCOMPARE(viewModel->zoom(), 1.5);
        QVERIFY(viewModel->note() == note);
        QVERIFY(m_reported.empty());
        QCOMPARE(make({})->text(), QString());
    }

    void everyChangeIsReportedImmediatelyAsAnUpdate()
    {
        const auto viewModel = make({.textContent = u""_s});
        StickyNote expected = viewModel->note();
        const QSignalSpy text(viewModel.get(), &StickyNoteViewModel::textChanged);
        const QSignalSpy color(viewModel.get(), &StickyNoteViewModel::colorChanged);
        const QSignalSpy zoom(viewModel.get(), &StickyNoteViewModel::zoomChanged);
        const QSignalSpy saved(viewModel.get(), &StickyNoteViewModel::isSavedChanged);

        const auto reported = [&] {
            expected.updatedAt = m_desk->clock.now();
            m_desk->clock.advance(1s);
            return m_reported.back() == expected && viewModel->note() == expected;
        };
        viewModel->setText(u"a"_s);
        expected.textContent = u"a"_s;
        QVERIFY(reported());
        viewModel->setColor(NoteColor::blue);
        expected.color = NoteColor::blue;
        QVERIFY(reported());
        viewModel->setZoom(1.1);
        expected.zoom = 1.1;
        QVERIFY(reported());
        viewModel->toggleSaved();
        expected.isSaved = true;
        QVERIFY(reported());
        QCOMPARE(m_reported.size(), size_t(4));
        for (const QSignalSpy* spy : {&text, &color, &zoom, &saved})
            QCOMPARE(spy->count(), 1);
    }

    void assigningTheSameValueIsNotAChange()
    {
        const auto viewModel = make({.textContent = u"a"_s});
        viewModel->setText(u"a"_s);
        viewModel->setColor(NoteColor::yellow);
        viewModel->setZoom(1.0);
        QVERIFY(m_reported.empty());
    }

    void frameChangeIsReportedWithoutUpdatingTheTimestamp()
    {
        const auto viewModel = make({.updatedAt = Instant::fromReferenceSeconds(5)});
        viewModel->updateFrame({1, 2, 300, 400});
        QCOMPARE(m_reported.size(), size_t(1));
        QCOMPARE(m_reported.back().frame, (NoteFrame{1, 2, 300, 400}));
        QCOMPARE(m_reported.back().updatedAt.referenceSeconds(), 5.0);
    }

    void invalidFrameIsIgnored()
    {
        const auto viewModel = make({.frame = {1, 2, 3, 4}});
        viewModel->updateFrame({0, 0, std::numeric_limits<double>::quiet_NaN(), 1});
        viewModel->updateFrame({0, std::numeric_limits<double>::infinity(), 1, 1});
        QVERIFY(m_reported.empty());
        QCOMPARE(viewModel->note().frame, (NoteFrame{1, 2, 3, 4}));
    }

    void fontSizeFollowsTheZoomWithinLimits()
    {
        QCOMPARE(make({.zoom = 1.0})->textSize(), 14.0);
        QCOMPARE(make({.zoom = 2.0})->textSize(), 28.0);
        QCOMPARE(make({.zoom = 0.6})->textSize(), 9.0);
        QCOMPARE(make({.kind = StickyNote::Kind::image, .zoom = 1.5})->textSize(), 18.0);
        QCOMPARE(make({.kind = StickyNote::Kind::image, .zoom = 0.6})->textSize(), 9.0);
        QCOMPARE(make({.zoom = 1e300})->textSize(), 28.0);
        QCOMPARE(make({.zoom = -1e300})->textSize(), 9.0);
    }

    void copyingATextNoteCopiesItsCurrentText()
    {
        const auto viewModel = make({.textContent = u"before"_s});
        viewModel->setText(u"now"_s);
        const QSignalSpy written(&m_desk->writer, &PasteboardWriter::written);
        viewModel->copyToClipboard();
        QCOMPARE(m_desk->pasteboard.content(), (PasteboardContent{.text = u"now"_s}));
        QCOMPARE(written.count(), 1);

        make({})->copyToClipboard();
        QCOMPARE(m_desk->pasteboard.content(), (PasteboardContent{.text = u""_s}));
    }

    void copyingAnImageNoteCopiesItsBytes()
    {
        const auto viewModel = make(image("any bytes"));
        viewModel->setText(u"a caption"_s);
        viewModel->copyToClipboard();
        QCOMPARE(m_desk->pasteboard.content(), (PasteboardContent{.png = "any bytes"}));
    }

    void copyingAnImageWithoutFileClearsThePasteboard()
    {
        m_desk->pasteboard.copy({.text = u"before"_s});
        make({.kind = StickyNote::Kind::image})->copyToClipboard();
        QVERIFY(m_desk->pasteboard.content().isEmpty());
    }

    void imageIsReadOnceAndCached()
    {
        const auto viewModel = make(image(picture({40, 30})));
        const QSignalSpy changed(viewModel.get(), &StickyNoteViewModel::imageChanged);
        QVERIFY(viewModel->image().isNull());
        QVERIFY(viewModel->image().isNull()); // one load is under way
        QCOMPARE(m_desk->tasks.pending(), size_t(1));
        m_desk->tasks.runAll();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(viewModel->image().size(), QSize(40, 30));
        QCOMPARE(m_desk->files.readCount(m_desk->imagePath(viewModel->note().id)), 1);
    }

    void missingOrBrokenImageIsRetried()
    {
        const StickyNote note{.kind = StickyNote::Kind::image};
        const auto viewModel = make(note);
        const QSignalSpy changed(viewModel.get(), &StickyNoteViewModel::imageChanged);
        QVERIFY(viewModel->image().isNull());
        m_desk->tasks.runAll();
        m_desk->files.setFile(m_desk->imagePath(note.id), "not an image");
        QVERIFY(viewModel->image().isNull());
        m_desk->tasks.runAll();
        QCOMPARE(changed.count(), 0);

        m_desk->files.setFile(m_desk->imagePath(note.id), picture({4, 3}));
        QVERIFY(viewModel->image().isNull());
        m_desk->tasks.runAll();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(viewModel->image().size(), QSize(4, 3));
    }

    void textNoteHasNoImageAndReadsNoFile()
    {
        const StickyNote note{.textContent = u"a"_s};
        m_desk->files.setFile(m_desk->imagePath(note.id), picture({4, 3}));
        QVERIFY(make(note)->image().isNull());
        QCOMPARE(m_desk->tasks.pending(), size_t(0));
    }

    void imageLargerThanANoteIsScaledDown()
    {
        const QImage large = decodedNoteImage(picture({8000, 400}));
        QCOMPARE(large.size(), QSize(3200, 160));
        QCOMPARE(decodedNoteImage(picture({1, 9000})).size(), QSize(1, 4000));
        QVERIFY(decodedNoteImage("").isNull());
    }

    void imageSizeIsReadFromTheHeader()
    {
        QCOMPARE(noteImageSize(picture({1000, 500})), QSizeF(1000, 500));
        QCOMPARE(noteImageSize(picture({1000, 500}, "JPEG")), QSizeF(1000, 500));
        QCOMPARE(noteImageSize("text"), std::nullopt);
        QCOMPARE(noteImageSize(""), std::nullopt);
    }

    void missingCallbacksAreTolerated()
    {
        const auto viewModel = make({});
        viewModel->close();
        viewModel->newNote();
        int closes = 0;
        viewModel->setOnClose([&closes] { ++closes; });
        viewModel->close();
        QCOMPARE(closes, 1);
    }

private:
    [[nodiscard]] std::unique_ptr<StickyNoteViewModel> make(const StickyNote& note)
    {
        const StickyNoteServices services{*m_desk->store, m_desk->files, m_desk->tasks,
                                          m_desk->writer, m_desk->clock};
        return std::make_unique<StickyNoteViewModel>(
            note, services, [this](const StickyNote& changed) { m_reported.push_back(changed); });
    }

    [[nodiscard]] StickyNote image(const QByteArray& bytes)
    {
        const StickyNote note{.kind = StickyNote::Kind::image};
        m_desk->files.setFile(m_desk->imagePath(note.id), bytes);
        return note;
    }

    std::optional<NotesDesk> m_desk;
    std::vector<StickyNote> m_reported;
};

DRIFTBOX_TEST(TestStickyNoteViewModel, QGuiApplication)
#include "TestStickyNoteViewModel.moc"
