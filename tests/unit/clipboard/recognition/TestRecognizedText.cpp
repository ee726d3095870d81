#include "clipboard/recognition/RecognizedText.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestRecognizedText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whitespaceIsTidied_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tidy");
        QTest::newRow("nothing") << u""_s << u""_s;
        QTest::newRow("only blanks") << u" \n "_s << u""_s;
        QTest::newRow("blanks at the ends") << u" some words \n"_s << u"some words"_s;
        QTest::newRow("double blanks") << u"some  words"_s << u"some words"_s;
        QTest::newRow("Chinese") << u"打 开 文件 。"_s << u"打开文件。"_s;
        QTest::newRow("Japanese") << u"メ ール を 開 く"_s << u"メールを開く"_s;
        QTest::newRow("Korean") << u"파일을 엽니다"_s << u"파일을 엽니다"_s;
        QTest::newRow("Latin in Chinese") << u"打 开 VS Code 吧"_s << u"打开 VS Code 吧"_s;
        QTest::newRow("comma after Chinese") << u"完成,共"_s << u"完成，共"_s;
        QTest::newRow("comma after Latin") << u"one, two"_s << u"one, two"_s;
        QTest::newRow("comma in a number") << u"共1,208个"_s << u"共1,208个"_s;
        QTest::newRow("a blank before the comma") << u"完成 ,共 , 有"_s << u"完成，共，有"_s;
        QTest::newRow("a full stop misread") << u"完成 ="_s << u"完成。"_s;
        QTest::newRow("an assignment") << u"数 = 5"_s << u"数 = 5"_s;
        QTest::newRow("a formula") << u"x ="_s << u"x ="_s;
        QTest::newRow("rare Han") << u"\U00020000 \U00020001"_s << u"\U00020000\U00020001"_s;
    }
    void whitespaceIsTidied()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, tidy);
        QCOMPARE(tidied(text), tidy);
    }

    void knowsTheScripts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("alphabetic");
        QTest::newRow("nothing") << u""_s << false;
        QTest::newRow("English") << u"Settings"_s << true;
        QTest::newRow("digits") << u"60%"_s << true;
        QTest::newRow("Russian") << u"да"_s << true;
        QTest::newRow("Han") << u"设置"_s << false;
        QTest::newRow("kana") << u"メール"_s << false;
        QTest::newRow("Hangul") << u"설정"_s << false;
        QTest::newRow("Latin read as Korean") << u"00\\ㅁ1"_s << true;
        QTest::newRow("only signs") << u"、。『"_s << false;
        QTest::newRow("mostly digits") << u"ㅁ35500070123"_s << true;
        QTest::newRow("hardly a digit") << u"第2章节"_s << false;
    }
    void knowsTheScripts()
    {
        QFETCH(const QString, text);
        QFETCH(const bool, alphabetic);
        QCOMPARE(isAlphabetic(text), alphabetic);
    }

    void knowsTheLanguages()
    {
        for (const QString& name : {u"chi_sim"_s, u"chi_tra"_s, u"jpn"_s, u"jpn_vert"_s, u"kor"_s})
            QVERIFY(isEastAsian(name));
        for (const QString& name : {u"eng"_s, u"deu"_s, u"kur"_s, u"rus"_s})
            QVERIFY(!isEastAsian(name));
    }
};

DRIFTBOX_TEST(TestRecognizedText, QCoreApplication)
#include "TestRecognizedText.moc"
