#include "core/ListKeyPress.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestListKeyPress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlAndADigitStandForARow()
    {
        QCOMPARE((ListKeyPress{Qt::Key_1, Qt::ControlModifier}.place()), 0);
        QCOMPARE((ListKeyPress{Qt::Key_9, Qt::ControlModifier}.place()), 8);
        QCOMPARE((ListKeyPress{Qt::Key_2, Qt::ControlModifier | Qt::ShiftModifier}.place()), 1);
        QCOMPARE((ListKeyPress{Qt::Key_3, Qt::ControlModifier | Qt::KeypadModifier}.place()), 2);
    }

    void otherKeysStandForNone()
    {
        QCOMPARE((ListKeyPress{Qt::Key_1}.place()), std::nullopt);
        QCOMPARE((ListKeyPress{Qt::Key_1, Qt::ShiftModifier}.place()), std::nullopt);
        QCOMPARE((ListKeyPress{Qt::Key_1, Qt::ControlModifier | Qt::AltModifier}.place()),
                 std::nullopt);
        QCOMPARE((ListKeyPress{Qt::Key_0, Qt::ControlModifier}.place()), std::nullopt);
        QCOMPARE((ListKeyPress{Qt::Key_Colon, Qt::ControlModifier}.place()), std::nullopt);
    }
};

DRIFTBOX_TEST(TestListKeyPress, QCoreApplication)
#include "TestListKeyPress.moc"
