#include "platform/selection/PasteboardTargets.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;

class TestPasteboardTargets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unknownTargetsAreNotRequested()
    {
        QCOMPARE(PasteboardTargets::choose({"TARGETS", "video/mp4"}), TargetChoice());
    }

    void formatsAreRequestedInOrderOfPreference()
    {
        const TargetChoice choice = PasteboardTargets::choose(
            {"STRING", "text/plain", "UTF8_STRING", "text/html", "application/rtf", "text/rtf",
             "image/jpeg", "image/png", "image/bmp"});

        QVERIFY(!choice.isSecret);
        QCOMPARE(choice.image, QByteArrayList({"image/png", "image/bmp", "image/jpeg"}));
        QCOMPARE(choice.text, QByteArrayList({"UTF8_STRING", "text/plain", "STRING"}));
        QCOMPARE(choice.rtf, QByteArrayList({"text/rtf", "application/rtf"}));
        QCOMPARE(choice.opaque, QByteArrayList({"text/html"}));
    }

    void pictureFormatsThatMayContainScriptsAreNotRequested()
    {
        QVERIFY(PasteboardTargets::choose({"image/svg+xml"}).image.isEmpty());
    }

    void secretsAreNotRequested()
    {
        const TargetChoice choice =
            PasteboardTargets::choose({"UTF8_STRING", "x-kde-passwordManagerHint", "image/png"});

        QVERIFY(choice.isSecret);
        QVERIFY(choice.text.isEmpty());
        QVERIFY(choice.image.isEmpty());
    }

    void ownerWithoutTargetsIsAskedForText()
    {
        QCOMPARE(PasteboardTargets::chooseDefault().text,
                 QByteArrayList({"UTF8_STRING", "STRING"}));
    }
};

DRIFTBOX_TEST(TestPasteboardTargets, QCoreApplication)
#include "TestPasteboardTargets.moc"
