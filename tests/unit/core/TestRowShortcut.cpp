#include "core/RowShortcut.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestRowShortcut : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlAndADigitStandForARow()
    {
        QCOMPARE(rowShortcutOf({Qt::Key_1, Qt::ControlModifier}), 0);
        QCOMPARE(rowShortcutOf({Qt::Key_9, Qt::ControlModifier}), 8);
        QCOMPARE(rowShortcutOf({Qt::Key_2, Qt::ControlModifier | Qt::ShiftModifier}), 1);
        QCOMPARE(rowShortcutOf({Qt::Key_3, Qt::ControlModifier | Qt::KeypadModifier}), 2);
    }

    void otherKeysStandForNone()
    {
        QCOMPARE(rowShortcutOf({Qt::Key_1}), std::nullopt);
        QCOMPARE(rowShortcutOf({Qt::Key_1, Qt::ShiftModifier}), std::nullopt);
        QCOMPARE(rowShortcutOf({Qt::Key_1, Qt::ControlModifier | Qt::AltModifier}), std::nullopt);
        QCOMPARE(rowShortcutOf({Qt::Key_0, Qt::ControlModifier}), std::nullopt);
        QCOMPARE(rowShortcutOf({Qt::Key_Colon, Qt::ControlModifier}), std::nullopt);
    }
};

DRIFTBOX_TEST(TestRowShortcut, QCoreApplication)
#include "TestRowShortcut.moc"
