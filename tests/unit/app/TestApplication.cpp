#include "support/main/TestMain.h"

#include "app/Application.h"

#include <chrono>

#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;

namespace {

class RefusingWindow final : public QWidget
{
public:
    int timesAsked = 0;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        ++timesAsked;
        event->ignore();
    }
};

} // namespace

class TestApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quittingEndsItWhateverIsOpen()
    {
        constexpr int lived = 1;
        RefusingWindow window;
        window.show();
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QTimer::singleShot(5s, &window, [] { QCoreApplication::exit(lived); });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(window.timesAsked, 0);
        QVERIFY(window.isVisible());
    }
};

DRIFTBOX_TEST(TestApplication, Application)
#include "TestApplication.moc"
