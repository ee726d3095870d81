#include "core/PreviewLines.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestPreviewLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheFirstLinesThatAreNotBlank_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<bool>("hasMore");

        QTest::newRow("nothing") << u""_s << u""_s << u""_s << false;
        QTest::newRow("one line") << u"one"_s << u"one"_s << u""_s << false;
        QTest::newRow("two lines") << u"one\ntwo"_s << u"one"_s << u"two"_s << false;
        QTest::newRow("three lines") << u"one\ntwo\nthree"_s << u"one"_s << u"two"_s << true;
        QTest::newRow("a break at the end") << u"one\ntwo\n\n "_s << u"one"_s << u"two"_s << false;
        QTest::newRow("blank lines between")
            << u"one\n\n \t\ntwo"_s << u"one"_s << u"two"_s << false;
        QTest::newRow("blank lines before") << u"\n \n  one"_s << u"  one"_s << u""_s << false;
        QTest::newRow("indentation") << u"if\n\t\tthen"_s << u"if"_s << u"\t\tthen"_s << false;
        QTest::newRow("Windows") << u"one\r\ntwo\r\n"_s << u"one"_s << u"two"_s << false;
        QTest::newRow("other breaks")
            << u"one\u2028two\u2029three"_s << u"one"_s << u"two"_s << true;
        QTest::newRow("only spaces") << u"   "_s << u"   "_s << u""_s << false;
        QTest::newRow("only breaks") << u"\n\n\n"_s << u""_s << u""_s << false;
        QTest::newRow("control characters")
            << u"\x1b[31mred\a\0\x9f"_s << u"[31mred"_s << u""_s << false;
        QTest::newRow("a turned direction")
            << u"a\u202egpj.exe\u202c"_s << u"agpj.exe"_s << u""_s << false;
        QTest::newRow("joined emoji")
            << u"👨‍👩‍👧"_s << u"👨‍👩‍👧"_s << u""_s << false;
        QTest::newRow("Persian") << u"می‌خواهم"_s << u"می‌خواهم"_s << u""_s
                                 << false;
    }
    void showsTheFirstLinesThatAreNotBlank()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, first);
        QFETCH(const QString, second);
        QFETCH(const bool, hasMore);
        const PreviewLines lines = previewLines(text);
        QCOMPARE(lines.first, first);
        QCOMPARE(lines.second, second);
        QCOMPARE(lines.hasMore, hasMore);
    }

    void longLinesAreCutBeyondTheVisiblePart()
    {
        const PreviewLines lines = previewLines(QString(3000, u'i') + u"\nsecond"_s);
        QVERIFY(lines.first.size() >= 200 && lines.first.size() < 1000);
        QCOMPARE(lines.second, u"second"_s);
    }

    void veryLongTextIsNotScannedToItsEnd()
    {
        QVERIFY(previewLines(QString(10'000'000, u'\n') + u"end"_s).first.isEmpty());
        QVERIFY(previewLines(u"one"_s + QString(5000, u' ')).hasMore);
    }
};

DRIFTBOX_TEST(TestPreviewLines, QCoreApplication)
#include "TestPreviewLines.moc"
