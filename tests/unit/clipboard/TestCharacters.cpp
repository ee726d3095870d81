#include "clipboard/Characters.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestCharacters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cutKeepsWholeCharacters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("kept");

        QTest::newRow("nothing of nothing") << u""_s << 0 << u""_s;
        QTest::newRow("nothing of something") << u"abc"_s << 0 << u""_s;
        QTest::newRow("more than there is") << u"abc"_s << 4 << u"abc"_s;
        QTest::newRow("all there is") << u"abc"_s << 3 << u"abc"_s;
        QTest::newRow("fewer") << u"abc"_s << 2 << u"ab"_s;
        QTest::newRow("surrogate pairs") << u"🦀🦀🦀"_s << 2 << u"🦀🦀"_s;
        QTest::newRow("as many units as characters wanted") << u"🦀🦀"_s << 4 << u"🦀🦀"_s;
        QTest::newRow("combining marks") << u"e\u0301e\u0301e\u0301"_s << 2 << u"e\u0301e\u0301"_s;
        QTest::newRow("a family") << u"👨‍👩‍👧‍👦x👨‍👩‍👧‍👦"_s << 2
                                  << u"👨‍👩‍👧‍👦x"_s;
        QTest::newRow("a flag") << u"🇩🇪🇫🇷🇯🇵"_s << 2 << u"🇩🇪🇫🇷"_s;
        QTest::newRow("carriage return and line feed") << u"a\r\nb"_s << 2 << u"a\r\n"_s;
        QTest::newRow("Hangul of parts") << u"각각"_s << 1 << u"각"_s;
    }
    void cutKeepsWholeCharacters()
    {
        QFETCH(const QString, text);
        QFETCH(const int, count);
        QFETCH(const QString, kept);
        QCOMPARE(firstCharacters(text, count), kept);
    }

    void singleCharacterMayBeVeryLong()
    {
        const QString tower = u"a"_s + QString(100'000, QChar(0x0301));
        QCOMPARE(firstCharacters(tower + u"b"_s, 1), tower);
        QCOMPARE(firstCharacters(tower + u"bc"_s, 2), tower + u"b"_s);
    }

    void cutDoesNotDependOnWhatFollows()
    {
        const QString unit = u"e\u0301🦀👨‍👩‍👧‍👦x"_s;
        const QString wanted = unit.repeated(1000);
        QCOMPARE(firstCharacters(wanted + u"y"_s, 4000), wanted);
        QCOMPARE(firstCharacters(unit.repeated(5000), 4000), wanted);
    }

    void brokenSurrogatesCountAsCharacters()
    {
        const QString broken = QString(QChar(0xd83e)) + u'a' + QChar(0xdc00) + u'b';
        QCOMPARE(firstCharacters(broken, 3), broken.first(3));
    }
};

DRIFTBOX_TEST(TestCharacters, QCoreApplication)
#include "TestCharacters.moc"
