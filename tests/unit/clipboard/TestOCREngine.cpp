#include "clipboard/OCREngine.h"
#include "clipboard/PageTextReader.h"
#include "support/Images.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QStringList fiveLanguages = {u"chi_sim"_s, u"chi_tra"_s, u"eng"_s, u"jpn"_s, u"kor"_s};

QByteArray somePicture()
{
    return imageFile(colorfulImage({8, 8}), "png");
}

/// Records what it is asked to read.
class FakePageTextReader final : public PageTextReader
{
public:
    QStringList installed;
    QString text;
    mutable QList<QStringList> asked;
    mutable QImage picture;
    mutable int timeLeft = -1;

    [[nodiscard]] QStringList installedLanguages() const override { return installed; }
    [[nodiscard]] QString read(const QImage& image, const QStringList& languages,
                               const ReadingLimit& limit) const override
    {
        picture = image;
        asked.push_back(languages);
        timeLeft = limit.timeLeft();
        return text;
    }
};

} // namespace

class TestOCREngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_reader = std::make_unique<FakePageTextReader>(); }

    void readsInFiveLanguagesInOrder()
    {
        m_reader->installed = {u"kor"_s, u"deu"_s,     u"eng"_s,    u"osd"_s,
                               u"jpn"_s, u"chi_tra"_s, u"chi_sim"_s};
        m_reader->text = u"text"_s;
        QCOMPARE(engine().recognizeText(somePicture()), u"text"_s);
        QCOMPARE(m_reader->asked, QList<QStringList>{fiveLanguages});
    }

    void pictureWithoutTextIsReadOnce()
    {
        m_reader->installed = fiveLanguages;
        QCOMPARE(engine().recognizeText(somePicture()), QString());
        QCOMPARE(m_reader->asked.size(), 1);
    }

    void missingLanguageMakesAllInstalledOnesCandidates()
    {
        m_reader->installed = {u"osd"_s, u"kor"_s, u"fra"_s, u"eng"_s, u"chi_sim"_s};
        m_reader->text = u"text"_s;
        QCOMPARE(engine().recognizeText(somePicture()), u"text"_s);
        QCOMPARE(m_reader->asked.size(), 1);
        QStringList languages = m_reader->asked.front();
        languages.sort();
        QCOMPARE(languages, (QStringList{u"chi_sim"_s, u"eng"_s, u"fra"_s, u"kor"_s}));
    }

    void noLanguageGivesNoText_data()
    {
        QTest::addColumn<QStringList>("installed");
        QTest::newRow("nothing installed") << QStringList();
        QTest::newRow("only what is no language") << QStringList{u"osd"_s, u"jpn_vert"_s};
    }
    void noLanguageGivesNoText()
    {
        QFETCH(const QStringList, installed);
        m_reader->installed = installed;
        m_reader->text = u"text"_s;
        QCOMPARE(engine().recognizeText(somePicture()), QString());
        QVERIFY(m_reader->asked.isEmpty());
    }

    void bytesThatAreNotAPictureHaveNoText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("no picture at all");
        QTest::newRow("zeros") << QByteArray(1000, '\0');
        QTest::newRow("only a signature") << QByteArray("\x89PNG\r\n\x1a\n");
        const QByteArray whole = imageFile(colorfulImage({200, 200}), "png");
        QTest::newRow("a truncated picture") << whole.first(whole.size() / 2);
        QTest::newRow("larger than any screen") << pngThatClaims({20'000, 20'000});
        QTest::newRow("an absurd size") << pngThatClaims({2'000'000'000, 2'000'000'000});
    }
    void bytesThatAreNotAPictureHaveNoText()
    {
        QFETCH(const QByteArray, bytes);
        m_reader->installed = fiveLanguages;
        m_reader->text = u"text"_s;
        QCOMPARE(engine().recognizeText(bytes), QString());
        QVERIFY(m_reader->asked.isEmpty());
    }

    void missingRecognizerGivesNoText()
    {
        const OCREngine without([] { return nullptr; }, 15s);
        QCOMPARE(without.recognizeText(somePicture()), QString());
    }

    void recognizerIsLoadedOnlyForPictures()
    {
        bool wanted = false;
        const OCREngine careful(
            [&]() -> const PageTextReader* {
                wanted = true;
                return m_reader.get();
            },
            15s);
        QCOMPARE(careful.recognizeText("no picture"), QString());
        QVERIFY(!wanted);
    }

    void timeLimitStartsWithTheCall()
    {
        m_reader->installed = fiveLanguages;
        QCOMPARE(engine(20s).recognizeText(somePicture()), QString());
        QVERIFY(m_reader->timeLeft > 0 && m_reader->timeLeft <= 20'000);
    }

    void readingStopsOnRequest()
    {
        OCREngine stopped = engine();
        m_reader->installed = fiveLanguages;
        stopped.stop();
        QCOMPARE(stopped.recognizeText(somePicture()), QString());
        QCOMPARE(m_reader->timeLeft, 0);
    }

private:
    [[nodiscard]] OCREngine engine(std::chrono::milliseconds limit = 15s) const
    {
        return {[this] { return m_reader.get(); }, limit};
    }

    std::unique_ptr<FakePageTextReader> m_reader;
};

DRIFTBOX_TEST(TestOCREngine, QCoreApplication)
#include "TestOCREngine.moc"
