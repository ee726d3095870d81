#include "clipboard/recognition/LanguageChoice.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestLanguageChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageUsesTheLanguagesOfItsSamples_data()
    {
        QTest::addColumn<QList<QList<int>>>("confidences"); // of eng, chi_sim, chi_tra
        QTest::addColumn<QStringList>("likely");
        QTest::newRow("one for all")
            << QList<QList<int>>{{95, 94}, {85, 90}, {80, 80}} << QStringList{u"eng"_s};
        QTest::newRow("one each") << QList<QList<int>>{{95, 20}, {70, 93}, {68, 75}}
                                  << QStringList{u"chi_sim"_s, u"eng"_s};
        QTest::newRow("hardly better for one")
            << QList<QList<int>>{{10, 20, 10}, {90, 92, 85}, {80, 70, 89}}
            << QStringList{u"chi_sim"_s};
        QTest::newRow("much better for one")
            << QList<QList<int>>{{10, 20, 10}, {90, 92, 75}, {80, 70, 90}}
            << QStringList{u"chi_sim"_s, u"chi_tra"_s};
        QTest::newRow("equally sure: the first")
            << QList<QList<int>>{{90}, {90}, {90}} << QStringList{u"eng"_s};
        QTest::newRow("no text") << QList<QList<int>>{{30, 0}, {10, 20}, {0, 39}} << QStringList();
        QTest::newRow("no samples") << QList<QList<int>>{{}, {}, {}} << QStringList();
    }
    void pageUsesTheLanguagesOfItsSamples()
    {
        QFETCH(const QList<QList<int>>, confidences);
        QFETCH(const QStringList, likely);
        const QStringList names = {u"eng"_s, u"chi_sim"_s, u"chi_tra"_s};
        std::vector<SampleReadings> readings;
        for (qsizetype i = 0; i < names.size(); ++i) {
            readings.push_back({.language = names[i],
                                .confidences = {confidences[i].begin(), confidences[i].end()}});
        }
        const LanguageChoice choice = languagesOf(readings);
        QCOMPARE(choice.likely, likely);
        QCOMPARE(choice.likely.size() + choice.unlikely.size(), names.size());
        for (const QString& language : choice.unlikely)
            QVERIFY(!likely.contains(language));
    }

    void noLanguagesGiveNoChoice()
    {
        QVERIFY(languagesOf({}).likely.isEmpty());
        QVERIFY(!explainAll({}));
    }

    void samplesAreExplainedOnceEachIsReadConfidently()
    {
        QVERIFY(explainAll({{.language = u"eng"_s, .confidences = {95, 80}}}));
        QVERIFY(!explainAll({{.language = u"eng"_s, .confidences = {95, 79}}}));
        QVERIFY(explainAll({{.language = u"eng"_s, .confidences = {95, 20}},
                            {.language = u"deu"_s, .confidences = {30, 90}}}));
    }
};

DRIFTBOX_TEST(TestLanguageChoice, QCoreApplication)
#include "TestLanguageChoice.moc"
