#include "notes/StickyNoteViewModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <cmath>
#include <optional>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestStickyNoteWindowController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk.emplace(); }
    void cleanup() { m_desk.reset(); }

    void windowOpensAtTheNotesFrameAndTakesTheKeyboard()
    {
        StickyNoteWindowController controller = make({100, 200, 240, 200});
        QCOMPARE(surface().frame(), QRectF(100, 200, 240, 200));
        QVERIFY(!surface().isVisible());
        controller.showWindow();
        QCOMPARE(surface().presentations, std::vector{FloatingSurface::Keyboard::take});
        QVERIFY(controller.isKey());
        controller.orderOut();
        QVERIFY(!surface().isVisible());
        QCOMPARE(m_reports, 0);
    }

    void movingTheWindowMovesTheNote()
    {
        StickyNoteWindowController controller = make({100, 200, 240, 200});
        surface().moveByUser(QRectF(-50, 60, 300, 250));
        QCOMPARE(controller.viewModel().note().frame, (NoteFrame{-50, 60, 300, 250}));
        QCOMPARE(controller.viewModel().note().updatedAt, Instant());
        QCOMPARE(m_reports, 1);
    }

    void zoomStopsAtTwoWhileTheWindowKeepsGrowing()
    {
        StickyNoteWindowController controller = make({600, 400, 240, 200});
        const double expected[] = {1.1, 1.21, 1.331, 1.4641, 1.61051, 1.771561, 1.9487171, 2, 2};
        for (const double zoom : expected) {
            controller.zoom(1.1);
            QVERIFY(qAbs(controller.viewModel().zoom() - zoom) < 1e-9);
        }
        QVERIFY(qAbs(surface().frame().width() - 240 * std::pow(1.1, 9)) < 1e-6);
        for (int more = 0; more < 30; ++more)
            controller.zoom(1.1);
        QCOMPARE(surface().frame().size(), QSizeF(1600, 2000));
        QCOMPARE(controller.viewModel().zoom(), 2.0);
    }

    void windowStopsShrinkingBeforeTheZoomDoes()
    {
        StickyNoteWindowController controller = make({600, 400, 240, 200});
        for (int steps = 0; steps < 5; ++steps)
            controller.zoom(1 / 1.1);
        QCOMPARE(surface().frame().width(), 160.0);
        QVERIFY(qAbs(surface().frame().height() - 200 / std::pow(1.1, 5)) < 1e-6);
        QVERIFY(qAbs(controller.viewModel().zoom() - 1 / std::pow(1.1, 5)) < 1e-9);
        controller.zoom(1 / 1.1);
        QCOMPARE(surface().frame().size(), QSizeF(160, 120));
        QCOMPARE(controller.viewModel().zoom(), 0.6);
    }

    void zoomingAtTheLimitReportsNothing()
    {
        StickyNoteWindowController controller = make({600, 400, 160, 120});
        controller.zoom(1 / 1.1);
        QCOMPARE(m_reports, 1); // the zoom alone
        for (int steps = 0; steps < 10; ++steps)
            controller.zoom(1 / 1.1);
        m_reports = 0;
        controller.zoom(1 / 1.1);
        QCOMPARE(m_reports, 0);
    }

    void zoomingKeepsTheCenterAndReportsFrameAndZoom()
    {
        StickyNoteWindowController controller = make({600, 400, 300, 200});
        controller.zoom(2);
        QCOMPARE(surface().frame(), QRectF(450, 300, 600, 400));
        QCOMPARE(controller.viewModel().note().frame, (NoteFrame{450, 300, 600, 400}));
        QCOMPARE(m_reports, 2);
    }

    void oversizedNoteShrinksToTheLimit()
    {
        StickyNoteWindowController controller = make({0, 0, 1900, 1000});
        controller.zoom(1.1);
        QCOMPARE(surface().frame().size(), QSizeF(1600, 1100));
        QCOMPARE(surface().frame().center(), QPointF(950, 500));
    }

private:
    [[nodiscard]] StickyNoteWindowController make(const QRectF& frame)
    {
        m_reports = 0;
        auto viewModel = std::make_unique<StickyNoteViewModel>(
            StickyNote{.frame = NoteFrame::fromRect(frame)},
            StickyNoteServices{*m_desk->store, m_desk->files, m_desk->tasks, m_desk->writer,
                               m_desk->clock},
            [this](const StickyNote&) { ++m_reports; });
        return {std::move(viewModel), m_desk->windows, frame};
    }
    [[nodiscard]] FakeFloatingSurface& surface() { return m_desk->lastSurface(); }

    std::optional<NotesDesk> m_desk;
    int m_reports = 0;
};

DRIFTBOX_TEST(TestStickyNoteWindowController, QGuiApplication)
#include "TestStickyNoteWindowController.moc"
