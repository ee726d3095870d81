#include "core/CaseInsensitiveMatcher.h"
#include "support/main/TestMain.h"

#include <map>
#include <vector>

#include <unicode/uchar.h>

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

bool isIn(const QString& needle, const QString& text, const QLocale& locale = QLocale::c())
{
    return CaseInsensitiveMatcher(needle, locale).isIn(text);
}

QString textOf(char32_t character)
{
    return QString::fromUcs4(&character, 1);
}

QLocale localeWith(bool turkic)
{
    return turkic ? QLocale(QLocale::Turkish) : QLocale::c();
}

// By the tables of another library than the matcher's.
char32_t folded(char32_t character, bool turkic)
{
    return static_cast<char32_t>(
        u_foldCase(static_cast<UChar32>(character),
                   turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT));
}

QString folded(const QString& text, bool turkic)
{
    QString result;
    for (const char32_t character : text.toStdU32String())
        result += textOf(folded(character, turkic));
    return result;
}

// What the matcher does, written as simply as possible.
bool naivelyIsIn(const QString& needle, const QString& text, bool turkic)
{
    return folded(text, turkic).contains(folded(needle, turkic));
}

QString randomText(QRandomGenerator& random, const std::u32string& alphabet, qsizetype length)
{
    QString text;
    for (qsizetype i = 0; i < length; ++i)
        text += textOf(alphabet[random.bounded(quint64(alphabet.size()))]);
    return text;
}

} // namespace

class TestCaseInsensitiveMatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ignoresCase_data()
    {
        QTest::addColumn<QString>("needle");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("found");

        QTest::newRow("upper in lower") << u"WORLD"_s << u"hello world"_s << true;
        QTest::newRow("lower in upper") << u"world"_s << u"HELLO WORLD!"_s << true;
        QTest::newRow("the whole text") << u"Same"_s << u"sAME"_s << true;
        QTest::newRow("longer than the text") << u"longer"_s << u"longe"_s << false;
        QTest::newRow("nothing in nothing") << u""_s << u""_s << true;
        QTest::newRow("nothing in something") << u""_s << u"a"_s << true;
        QTest::newRow("something in nothing") << u"a"_s << u""_s << false;
        QTest::newRow("across a line break") << u"a\nb"_s << u"xA\nBx"_s << true;
        QTest::newRow("digits and signs") << u"[@`{"_s << u"x[@`{x"_s << true;
        QTest::newRow("signs have no case") << u"[@"_s << u"{`"_s << false;
        QTest::newRow("umlauts") << u"ÄÖÜ"_s << u"xäöüx"_s << true;
        QTest::newRow("sharp s") << u"straße"_s << u"STRAẞE"_s << true;
        QTest::newRow("Greek") << u"ΟΔΟΣ"_s << u"οδος"_s << true;
        QTest::newRow("final sigma") << u"σ"_s << u"ς"_s << true;
        QTest::newRow("capital in final sigma") << u"Σ"_s << u"ς"_s << true;
        QTest::newRow("theta symbol") << u"θ"_s << u"ϴ"_s << true;
        QTest::newRow("Cyrillic") << u"ПРИВЕТ"_s << u"привет"_s << true;
        QTest::newRow("Armenian") << u"ԲԱՐԵՒ"_s << u"բարեւ"_s << true;
        QTest::newRow("Georgian") << u"ᲗᲑ"_s << u"თბ"_s << true;
        QTest::newRow("Kelvin sign") << u"k"_s << u"\u212a"_s << true;
        QTest::newRow("in Kelvin sign") << u"\u212a"_s << u"K"_s << true;
        QTest::newRow("long s") << u"ſ"_s << u"S"_s << true;
        QTest::newRow("in long s") << u"S"_s << u"ſ"_s << true;
        QTest::newRow("micro sign and mu") << u"µ"_s << u"Μ"_s << true;
        QTest::newRow("full width") << u"ａ"_s << u"Ａ"_s << true;
        QTest::newRow("Chinese") << u"剪贴板"_s << u"我的剪贴板历史"_s << true;
        QTest::newRow("emoji") << u"🦀"_s << u"crab 🦀!"_s << true;
        QTest::newRow("another emoji") << u"🦀"_s << u"🦁"_s << false;
        QTest::newRow("Deseret") << u"𐐀"_s << u"𐐨"_s << true;
        QTest::newRow("Adlam") << u"𞤀𞤁"_s << u"x𞤢𞤣"_s << true;
        QTest::newRow("another Adlam letter") << u"𞤀"_s << u"𞤣"_s << false;
        QTest::newRow("a lone surrogate") << QString(QChar(0xdc00)) << u"𐐀"_s << true;
    }
    void ignoresCase()
    {
        QFETCH(const QString, needle);
        QFETCH(const QString, text);
        QFETCH(const bool, found);
        QCOMPARE(isIn(needle, text), found);
    }

    void dottedAndDotlessIDifferInTurkicLanguages()
    {
        for (const QLocale& locale : {QLocale(QLocale::Turkish), QLocale(QLocale::Azerbaijani)}) {
            QVERIFY(isIn(u"i"_s, u"İ"_s, locale));
            QVERIFY(isIn(u"I"_s, u"ı"_s, locale));
            QVERIFY(isIn(u"ı"_s, u"I"_s, locale));
            QVERIFY(!isIn(u"i"_s, u"I"_s, locale));
            QVERIFY(!isIn(u"I"_s, u"i"_s, locale));
            QVERIFY(isIn(u"DIŞ"_s, u"dış"_s, locale));
            QVERIFY(!isIn(u"title"_s, u"TITLE"_s, locale));
        }
        for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::German)}) {
            QVERIFY(isIn(u"title"_s, u"TITLE"_s, locale));
            QVERIFY(!isIn(u"ı"_s, u"I"_s, locale));
        }
    }

    void findsAtEveryPosition()
    {
        const QString needle = u"Nadel"_s;
        for (qsizetype length = needle.size(); length < 60; ++length) {
            for (qsizetype place = 0; place + needle.size() <= length; ++place) {
                QString text(length, u'n');
                text.replace(place, needle.size(), u"nADEL"_s);
                QVERIFY(isIn(needle, text));
                text[place + 2] = u'x';
                QVERIFY(!isIn(needle, text));
            }
        }
    }

    void doesNotReadPastTheEnd()
    {
        const QString text = u"abcdefghijklmnopqrstuvwxyz"_s;
        for (qsizetype length = 0; length < text.size(); ++length)
            QVERIFY(!CaseInsensitiveMatcher(text.mid(length, 1), QLocale::c())
                         .isIn(QStringView(text).first(length)));
    }

    void agreesWithTheNaiveSearch_data()
    {
        QTest::addColumn<QString>("alphabet");
        QTest::addColumn<bool>("turkic");
        const auto row = [](const char* name, const QString& alphabet) {
            QTest::newRow(name) << alphabet << false;
            QTest::addRow("%s, Turkic", name) << alphabet << true;
        };
        row("two letters", u"aAbB"_s);
        row("many forms", u"kK\u212asSſςσΣθϑΘϴµμΜ\u0345ιΙ\u1fbe"_s);
        row("letters that become two", u"sSßẞfFﬀŉnNǰjJ\u02bc\u030cΐ\u1fd3"_s);
        row("dots of an i", u"iIİı\u0307jJ"_s);
        row("capitals that stay", u"ᏸᏰꭰᎠᲗთᲑბაᲐ"_s);
        row("beyond the first plane", u"𐐀𐐨𐐁𐐩𞤀𞤢𞤁𞤣𐒰𐓘🦀🦁"_s);
        row("scripts", u"aÄäñÑжЖアｱ中文Ａａ \n\t"_s);
    }
    void agreesWithTheNaiveSearch()
    {
        QFETCH(const QString, alphabet);
        QFETCH(const bool, turkic);
        const std::u32string characters = alphabet.toStdU32String();
        QRandomGenerator random(20240229);
        int found = 0;
        for (int round = 0; round < 1500; ++round) {
            const QString text = randomText(random, characters, random.bounded(40));
            const QString needle = randomText(random, characters, 1 + random.bounded(4));
            const bool expected = naivelyIsIn(needle, text, turkic);
            if (isIn(needle, text, localeWith(turkic)) != expected)
                QFAIL(qPrintable(needle + (expected ? u" is in "_s : u" is not in "_s) + text));
            found += expected;
        }
        QVERIFY(found > 50 && found < 1450);
    }

    void everyCharacterMatchesExactlyItsCaseVariants_data()
    {
        QTest::addColumn<bool>("turkic");
        QTest::newRow("elsewhere") << false;
        QTest::newRow("Turkic") << true;
    }
    void everyCharacterMatchesExactlyItsCaseVariants()
    {
        QFETCH(const bool, turkic);
        std::map<char32_t, std::vector<char32_t>> cases;
        for (char32_t character = 1; character <= QChar::LastValidCodePoint; ++character) {
            if (const char32_t other = folded(character, turkic); other != character)
                cases[other].push_back(character);
        }
        QVERIFY(cases.size() > 1300);
        for (auto& [common, others] : cases) {
            others.push_back(common);
            for (const char32_t one : others) {
                const QString character = textOf(one);
                const CaseInsensitiveMatcher matcher(character, localeWith(turkic));
                for (const char32_t other : others)
                    QVERIFY2(matcher.isIn(textOf(other)), qPrintable(character));
                for (const char32_t neighbor : {one - 1, one + 1}) {
                    const bool isCase = folded(neighbor, turkic) == common;
                    QVERIFY2(matcher.isIn(textOf(neighbor)) == isCase, qPrintable(character));
                }
            }
        }
    }

    void findsALongNeedle()
    {
        QString needle;
        for (int i = 0; i < 1000; ++i)
            needle += u"zażółć gęślą jaźń "_s;
        QVERIFY(isIn(needle, u"x"_s + needle.toUpper()));
        needle.back() = u'!';
        QVERIFY(!isIn(needle, u"x"_s + needle.chopped(1).toUpper()));
    }
};

DRIFTBOX_TEST(TestCaseInsensitiveMatcher, QCoreApplication)
#include "TestCaseInsensitiveMatcher.moc"
