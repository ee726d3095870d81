#include "clipboard/InstalledLanguages.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QStringList usual = {u"chi_sim"_s, u"chi_tra"_s, u"eng"_s, u"jpn"_s, u"kor"_s};

} // namespace

class TestInstalledLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void languageOfTheUserComesFirst_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("first");
        QTest::newRow("English") << u"en_GB"_s << u"eng"_s;
        QTest::newRow("German") << u"de_AT"_s << u"deu"_s;
        QTest::newRow("Japanese") << u"ja_JP"_s << u"jpn"_s;
        QTest::newRow("Korean") << u"ko_KR"_s << u"kor"_s;
        QTest::newRow("Norwegian") << u"nb_NO"_s << u"nor"_s;
        QTest::newRow("China") << u"zh_CN"_s << u"chi_sim"_s;
        QTest::newRow("Singapore") << u"zh_SG"_s << u"chi_sim"_s;
        QTest::newRow("Taiwan") << u"zh_TW"_s << u"chi_tra"_s;
        QTest::newRow("Hong Kong") << u"zh_HK"_s << u"chi_tra"_s;
        QTest::newRow("no language") << u"C"_s << u"chi_sim"_s;
        QTest::newRow("one that is not installed") << u"fi_FI"_s << u"chi_sim"_s;
    }
    void languageOfTheUserComesFirst()
    {
        QFETCH(const QString, locale);
        QFETCH(const QString, first);
        const QStringList installed = QStringList{u"deu"_s, u"nor"_s} + usual;
        QCOMPARE(preferredLanguages(installed, QLocale(locale), usual).front(), first);
    }

    void commonLanguagesComeBeforeOthers()
    {
        const QStringList installed = {u"fra"_s, u"kor"_s, u"deu"_s, u"eng"_s, u"chi_sim"_s};
        QCOMPARE(preferredLanguages(installed, QLocale(u"ko_KR"_s), usual),
                 (QStringList{u"kor"_s, u"chi_sim"_s, u"eng"_s, u"deu"_s, u"fra"_s}));
    }

    void dataThatIsNotALanguageIsSkipped()
    {
        const QStringList installed = {u"osd"_s, u"equ"_s, u"jpn_vert"_s, u"eng"_s};
        QCOMPARE(preferredLanguages(installed, QLocale::c(), usual), QStringList{u"eng"_s});
    }

    void atMostEightLanguagesAreUsed()
    {
        QStringList installed = {u"eng"_s, u"deu"_s};
        for (int i = 0; i < 100; ++i)
            installed.push_back(u"a%1"_s.arg(i));
        const QStringList languages = preferredLanguages(installed, QLocale(u"de_DE"_s), usual);
        QCOMPARE(languages.size(), 8);
        QCOMPARE(languages.first(2), (QStringList{u"deu"_s, u"eng"_s}));
    }

    void noInstalledLanguagesGiveNone()
    {
        QVERIFY(preferredLanguages({}, QLocale(u"en_US"_s), usual).isEmpty());
    }
};

DRIFTBOX_TEST(TestInstalledLanguages, QCoreApplication)
#include "TestInstalledLanguages.moc"
