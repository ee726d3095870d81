#include "platform/ScreenGeometry.h"
#include "support/main/TestMain.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString withoutScreens = u"--center-without-screens"_s;

const std::vector<Screen> sideBySide{
    {QRectF(0, 0, 1440, 900), QRectF(0, 0, 1440, 875), QRect(), 1.0},
    {QRectF(-1280, 100, 1280, 800), QRectF(-1280, 140, 1280, 760), QRect(), 1.0},
};

} // namespace

class TestScreenGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyEdgeBelongsToOneScreen()
    {
        using ScreenGeometry::screenContaining;
        const Screen* const primary = &sideBySide.front();
        const Screen* const left = &sideBySide.back();

        QCOMPARE(screenContaining({0, 500}, sideBySide), primary);
        QCOMPARE(screenContaining({-0.5, 500}, sideBySide), left);
        QCOMPARE(screenContaining({1439, 900}, sideBySide), primary); // the topmost row
        QCOMPARE(screenContaining({1440, 500}, sideBySide), nullptr);
        QCOMPARE(screenContaining({700, 0}, sideBySide), nullptr);
        QCOMPARE(screenContaining({-700, 50}, sideBySide), nullptr);
        QCOMPARE(screenContaining({0, 0}, {}), nullptr);
    }

    void panelIsCenteredInTheVisibleFrameOfTheMouseScreen()
    {
        const QSizeF size(552, 648);
        QCOMPARE(ScreenGeometry::centeredOrigin(size, {10, 10}, sideBySide),
                 QPointF(720 - 276, 437.5 - 324));
        QCOMPARE(ScreenGeometry::centeredOrigin(size, {-10, 110}, sideBySide),
                 QPointF(-640 - 276, 520 - 324));
    }

    void mouseOffAllScreensMeansThePrimaryScreen()
    {
        QCOMPARE(ScreenGeometry::centeredOrigin({552, 648}, {9000, 9000}, sideBySide),
                 QPointF(720 - 276, 437.5 - 324));
    }

    void noScreenIsFatal()
    {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(),
                      {u"TestScreenGeometry"_s, withoutScreens});
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);
        QVERIFY(program.readAllStandardError().contains("There is no screen"));
    }
};

static int runTestScreenGeometry(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(withoutScreens)) {
        (void)ScreenGeometry::centeredOrigin({552, 648}, {0, 0}, {});
        return 0;
    }
    TestScreenGeometry test;
    return QTest::qExec(&test, argc, argv);
}
DRIFTBOX_TEST_MAIN(TestScreenGeometry, runTestScreenGeometry)
#include "TestScreenGeometry.moc"
