#include "notes/view/NoteButton.h"
#include "notes/view/NoteControlRow.h"
#include "notes/view/NoteEditor.h"
#include "notes/view/NoteImageView.h"
#include "notes/view/StickyNotePanel.h"
#include "support/main/TestMain.h"
#include "ui/controls/Tooltip.h"
#include "ui/theme/Theme.h"
#include "unit/notes/view/OpenNote.h"

#include <optional>

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestStickyNotePanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open({}); }
    void cleanup()
    {
        m_panel.reset();
        m_note.reset();
    }

    void windowHasTheNameAndRoleOfANote()
    {
        QCOMPARE(m_panel->windowTitle(), u"Sticky note"_s);
        QCOMPARE(surface().role, FloatingSurface::Role::note);
        QVERIFY(m_panel->windowFlags().testFlag(Qt::Window));
        QVERIFY(!m_panel->isVisible());
        const auto* accessible = QAccessible::queryAccessibleInterface(&*m_panel);
        QCOMPARE(accessible->text(QAccessible::Name), u"Sticky note"_s);
        QCOMPARE(accessible->role(), QAccessible::Window);
    }

    void compositedWindowHasRoomForAShadow()
    {
        QCOMPARE(m_panel->shadowMargin(), 20.0);
        QCOMPARE(m_panel->minimumSize(), QSize(200, 160));
        const QImage picture = m_panel->grab().toImage();
        QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
        QCOMPARE(picture.pixel(140, 120), Theme::noteSwatch(NoteColor::yellow).rgb());
        // A narrow margin around the paper takes the mouse, too.
        QCOMPARE(surface().shape, QRegion(16, 16, 248, 208));
    }

    void paperIsAPlainRectangleWithoutCompositing()
    {
        surface().setFrame(QRectF(80, 80, 280, 240));
        expectSizeHints();
        surface().setComposited(false);
        QCOMPARE(m_panel->shadowMargin(), 0.0);
        QCOMPARE(surface().frame(), QRectF(100, 100, 240, 200));
        QCOMPARE(m_panel->minimumSize(), QSize(160, 120));
        QVERIFY(surface().shape.isEmpty());
        m_panel->resize(240, 200);
        const QImage picture = m_panel->grab().toImage();
        QCOMPARE(picture.pixelColor(0, 0).alpha(), 255);
        QCOMPARE(picture.pixel(1, 1), Theme::noteSwatch(NoteColor::yellow).rgb());

        expectSizeHints();
        surface().setComposited(true);
        QCOMPARE(surface().frame(), QRectF(80, 80, 280, 240));
    }

    void paperHasTheNotesColor()
    {
        m_note->viewModel.setColor(NoteColor::blue);
        QCOMPARE(m_panel->grab().toImage().pixel(140, 120),
                 Theme::noteSwatch(NoteColor::blue).rgb());
    }

    void controlsShowOnHoverWithoutMovingTheText()
    {
        const auto* controls = m_panel->findChild<NoteControlRow*>();
        const QRect editor = this->editor().geometry();
        QEnterEvent enter(QPointF(50, 50), QPointF(50, 50), QPointF(50, 50));
        m_panel->windowHandle()->show();
        QCoreApplication::sendEvent(m_panel.get(), &enter);
        QTRY_VERIFY(controls->isVisible());
        QCOMPARE(this->editor().geometry(), editor);
        QVERIFY(!controls->geometry().intersects(editor));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_panel.get(), &leave);
        QTRY_VERIFY(!controls->isVisible());
        QCOMPARE(this->editor().geometry(), editor);
    }

    void tooltipsShowOnAnUnfocusedNote()
    {
        m_panel->windowHandle()->show();
        QEnterEvent enter(QPointF(50, 50), QPointF(50, 50), QPointF(50, 50));
        QCoreApplication::sendEvent(m_panel.get(), &enter);
        QWidget other;
        other.show();
        other.activateWindow();
        QTRY_VERIFY(other.isActiveWindow());
        auto* swatch = m_panel->findChild<NoteSwatchButton*>();
        QTRY_VERIFY(swatch->isVisible());
        const QPoint place = swatch->mapTo(m_panel.get(), swatch->rect().center());
        QTest::mouseMove(m_panel->windowHandle(), place);
        QTRY_COMPARE(Tooltip::shownText(*m_panel), u"Yellow"_s);
    }

    void hintLineIsAtTheBottom()
    {
        auto* content = editor().parentWidget();
        const auto* hint = content->findChild<QLabel*>();
        QCOMPARE(hint->text(), u"⌘W close   ·   ⌘+  ⌘-  zoom"_s);
        QCOMPARE(hint->font().pixelSize(), 9);
        QCOMPARE(hint->palette().color(QPalette::WindowText).alpha(), 128);
        QCOMPARE(hint->geometry().bottom(), content->rect().bottom());
        QVERIFY(editor().geometry().bottom() < hint->geometry().top());
    }

    void edgesAndCornersResize_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<Qt::Edges>("edges");
        const auto row = [](const char* name, QPoint place, Qt::Edges edges) {
            QTest::newRow(name) << place << edges;
        };
        row("left", {21, 120}, Qt::LeftEdge);
        row("left, over the shadow", {17, 120}, Qt::LeftEdge);
        row("right", {258, 120}, Qt::RightEdge);
        row("top", {140, 21}, Qt::TopEdge);
        row("bottom", {140, 218}, Qt::BottomEdge);
        row("upper left", {22, 22}, Qt::LeftEdge | Qt::TopEdge);
        row("upper right", {258, 30}, Qt::RightEdge | Qt::TopEdge);
        row("lower left", {30, 218}, Qt::LeftEdge | Qt::BottomEdge);
        row("lower right", {262, 222}, Qt::RightEdge | Qt::BottomEdge);
    }
    void edgesAndCornersResize()
    {
        QFETCH(const QPoint, place);
        QFETCH(const Qt::Edges, edges);
        QTest::mousePress(m_panel.get(), Qt::LeftButton, {}, place);
        QCOMPARE(surface().resizes, std::vector{edges});
        QCOMPARE(surface().moves, 0);
    }

    void draggingOutsideTheTextMovesTheWindow()
    {
        auto* content = editor().parentWidget();
        drag(*content, {60, 3}, {61, 4});
        QCOMPARE(surface().moves, 0);
        drag(*content, {60, 3}, {60, 20});
        QCOMPARE(surface().moves, 1);
        drag(*content, {100, content->height() - 5}, {120, content->height() - 5});
        QCOMPARE(surface().moves, 2);
        drag(*editor().viewport(), {60, 100}, {60, 90});
        QCOMPARE(surface().moves, 3);
        QVERIFY(surface().resizes.empty());
    }

    // The window manager receives the release of the button.
    void moveEndsWithoutARelease()
    {
        auto* content = editor().parentWidget();
        QWidget* text = editor().viewport();
        for (QWidget* widget : {content, text}) {
            surface().moves = 0;
            QTest::mousePress(widget, Qt::LeftButton, {}, {60, widget->height() - 6});
            for (const int y : {20, 40, 60})
                moveMouse(*widget, {60, y});
            QCOMPARE(surface().moves, 1);
        }
        QVERIFY(!editor().textCursor().hasSelection());
    }

    void imageIsAboveTheText()
    {
        const StickyNote note{.kind = StickyNote::Kind::image};
        open(note);
        auto* view = m_panel->findChild<NoteImageView*>();
        QCOMPARE(view->height(), 0); // there is no file
        m_note->desk.tasks.runAll();
        m_note->desk.files.setFile(m_note->desk.imagePath(note.id), picture({400, 200}));
        (void)m_note->viewModel.image();
        m_note->desk.tasks.runAll();
        QCOMPARE(view->height(), qRound(view->width() / 2.0));
        QVERIFY(editor().geometry().top() > view->geometry().bottom());
        const QImage shown = m_panel->grab().toImage();
        QCOMPARE(shown.pixel(view->mapTo(m_panel.get(), view->rect().center())),
                 QColor(Qt::red).rgb());
        // The picture moves the window, too.
        drag(*view, {20, 20}, {40, 20});
        QCOMPARE(surface().moves, 1);
    }

    void closingTheWindowClosesTheNote()
    {
        int closed = 0;
        m_note->viewModel.setOnClose([&closed] { ++closed; });
        QVERIFY(m_panel->close());
        QCOMPARE(closed, 1);
    }

private:
    void open(const StickyNote& note)
    {
        m_panel.reset();
        m_note.emplace(note);
        m_surfaces.surfaces.clear();
        expectSizeHints();
        m_panel = std::make_unique<StickyNotePanel>(m_note->viewModel, m_surfaces,
                                                    m_note->desk.pasteboard, m_note->selectedText);
        m_panel->resize(280, 240);
        (void)m_panel->grab(); // lays it out
    }

    /// The offscreen platform does not support size hints.
    static void expectSizeHints()
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    }

    [[nodiscard]] FakeFloatingSurface& surface() const { return *m_surfaces.surfaces.back(); }
    [[nodiscard]] NoteEditor& editor() const { return *m_panel->findChild<NoteEditor*>(); }

    static void drag(QWidget& widget, QPoint from, QPoint to)
    {
        QTest::mousePress(&widget, Qt::LeftButton, {}, from);
        moveMouse(widget, to);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
    }

    static void moveMouse(QWidget& widget, QPoint to)
    {
        QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &move);
    }

    std::optional<OpenNote> m_note;
    FakeFloatingSurfaceFactory m_surfaces;
    std::unique_ptr<StickyNotePanel> m_panel;
};

DRIFTBOX_TEST(TestStickyNotePanel, QApplication)
#include "TestStickyNotePanel.moc"
