#include "fakes/FakeScreens.h"
#include "notes/NotePlacement.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(NoteFrame)

namespace {

const std::vector<Screen> oneScreen = {
    {QRectF(0, 0, 1440, 900), QRectF(0, 0, 1440, 875), QRect(0, 0, 1440, 900), 1.0}};

const std::vector<Screen> twoScreens = {
    oneScreen.front(),
    {QRectF(-1920, 100, 1920, 1080), QRectF(-1920, 140, 1920, 1040), QRect(), 2.0}};

NoteFrame cascade(qint64 count, const std::optional<QSizeF>& image = std::nullopt)
{
    return NotePlacement::cascadeFrame(count, image, oneScreen);
}

} // namespace

class TestNotePlacement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newNotesCascadeFromTheUpperRightCorner()
    {
        QCOMPARE(cascade(0), (NoteFrame{1160, 635, 240, 200}));
        QCOMPARE(cascade(1), (NoteFrame{1134, 609, 240, 200}));
        QCOMPARE(cascade(2), (NoteFrame{1108, 583, 240, 200}));
        QCOMPARE(cascade(7), (NoteFrame{978, 453, 240, 200}));
        QCOMPARE(cascade(8), cascade(0));
        QCOMPARE(cascade(8'000'000'001), cascade(1));
    }

    void imageDeterminesTheSize_data()
    {
        QTest::addColumn<QSizeF>("image");
        QTest::addColumn<QSizeF>("note");
        QTest::newRow("wide") << QSizeF(1000, 500) << QSizeF(520, 356);
        QTest::newRow("small") << QSizeF(100, 100) << QSizeF(300, 396);
        QTest::newRow("between") << QSizeF(400, 200) << QSizeF(400, 296);
        QTest::newRow("a line") << QSizeF(100, 1) << QSizeF(300, 99);
    }
    void imageDeterminesTheSize()
    {
        QFETCH(const QSizeF, image);
        QFETCH(const QSizeF, note);
        const NoteFrame frame = cascade(1, image);
        QCOMPARE(frame.toRect().size(), note);
        QCOMPARE(frame.x + frame.width, 1440.0 - 66);
        QCOMPARE(frame.y + frame.height, 875.0 - 66);
    }

    void frameIsGivenEvenWithoutAScreen()
    {
        QCOMPARE(NotePlacement::cascadeFrame(0, std::nullopt, {}),
                 (NoteFrame{-280, -240, 240, 200}));
        QVERIFY(!NotePlacement::isVisible({0, 0, 100, 100}, {}));
    }

    void noteIsVisibleIfAnyPartIsOnAScreen_data()
    {
        QTest::addColumn<NoteFrame>("frame");
        QTest::addColumn<bool>("visible");
        QTest::newRow("inside") << NoteFrame{10, 10, 240, 200} << true;
        QTest::newRow("a corner") << NoteFrame{1439, 874, 240, 200} << true;
        QTest::newRow("beside") << NoteFrame{1440, 100, 240, 200} << false;
        QTest::newRow("under the bar only") << NoteFrame{100, 875, 240, 25} << false;
        QTest::newRow("second screen") << NoteFrame{-300, 1000, 240, 200} << true;
        QTest::newRow("under the second screen") << NoteFrame{-300, -80, 240, 200} << false;
        QTest::newRow("nothing of it") << NoteFrame{100, 100, 0, 0} << false;
        QTest::newRow("turned over") << NoteFrame{100, 100, -50, -50} << true;
        QTest::newRow("enormous") << NoteFrame{-1e300, -1e300, 2e300, 2e300} << true;
        QTest::newRow("far away") << NoteFrame{1e300, 1e300, 240, 200} << false;
    }
    void noteIsVisibleIfAnyPartIsOnAScreen()
    {
        QFETCH(const NoteFrame, frame);
        QTEST(NotePlacement::isVisible(frame, twoScreens), "visible");
    }

    void reasonableFrameIsUsedUnchanged()
    {
        for (const NoteFrame& frame :
             {NoteFrame{1160, 635, 240, 200}, NoteFrame{-1919.5, 200.25, 160, 120},
              NoteFrame{1400, 860, 1700, 500}}) {
            QCOMPARE(NoteFrame::fromRect(NotePlacement::windowRect(frame, twoScreens)), frame);
        }
    }

    void unreasonableFrameIsClamped_data()
    {
        QTest::addColumn<NoteFrame>("frame");
        QTest::addColumn<NoteFrame>("window");
        QTest::newRow("too small: the upper left corner stays")
            << NoteFrame{100, 100, 10, 20} << NoteFrame{100, 0, 160, 120};
        QTest::newRow("turned over")
            << NoteFrame{100, 300, -50, -50} << NoteFrame{50, 180, 160, 120};
        QTest::newRow("as high as a tower")
            << NoteFrame{1100, -29'999'261, 300, 30'000'096} << NoteFrame{1100, -1165, 300, 2000};
        QTest::newRow("as large as the sky")
            << NoteFrame{-1e300, -1e300, 2e300, 2e300} << NoteFrame{0, -1125, 3360, 2000};
        QTest::newRow("beyond all numbers")
            << NoteFrame{50, 1e308, 160, 1.7e308} << NoteFrame{50, -1125, 160, 2000};
    }
    void unreasonableFrameIsClamped()
    {
        QFETCH(const NoteFrame, frame);
        QFETCH(const NoteFrame, window);
        QCOMPARE(NoteFrame::fromRect(NotePlacement::windowRect(frame, twoScreens)), window);
    }
};

DRIFTBOX_TEST(TestNotePlacement, QCoreApplication)
#include "TestNotePlacement.moc"
