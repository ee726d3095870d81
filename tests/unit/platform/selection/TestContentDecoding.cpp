#include "platform/selection/ContentDecoding.h"
#include "support/Images.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

RawContent textUnder(const QByteArray& target, const QByteArray& bytes)
{
    RawContent raw;
    raw.textTarget = target;
    raw.text = QByteArrayList{bytes};
    return raw;
}

const QStringList invalidText{u"Refused the clipboard's text: not valid UTF-8"_s};

} // namespace

class TestContentDecoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noFormatsGiveNoContent()
    {
        const DecodedContent decoded = decode({});
        QVERIFY(decoded.content.isEmpty());
        QVERIFY(decoded.refusals.isEmpty());
    }

    void textIsDecodedByItsTarget_data()
    {
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("UTF-8") << QByteArray("UTF8_STRING")
                               << QByteArray("na\xc3\xafve \xf0\x9f\x98\x80")
                               << u"na\u00efve \U0001F600"_s;
        QTest::newRow("plain") << QByteArray("text/plain") << QByteArray("\xe2\x82\xac")
                               << u"\u20ac"_s;
        QTest::newRow("Latin-1") << QByteArray("STRING") << QByteArray("na\xefve")
                                 << u"na\u00efve"_s;
        QTest::newRow("empty") << QByteArray("UTF8_STRING") << QByteArray() << u""_s;
        QTest::newRow("with its terminator")
            << QByteArray("UTF8_STRING") << QByteArray("word\0", 5) << u"word"_s;
        QTest::newRow("with a zero within")
            << QByteArray("UTF8_STRING") << QByteArray("a\0b", 3) << QString(u"a\0b"_s);
        QTest::newRow("line ends")
            << QByteArray("UTF8_STRING") << QByteArray("a\r\nb\n") << u"a\r\nb\n"_s;
    }

    void textIsDecodedByItsTarget()
    {
        QFETCH(QByteArray, target);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        const DecodedContent decoded = decode(textUnder(target, bytes));

        QVERIFY(decoded.content.text.has_value());
        QCOMPARE(*decoded.content.text, text);
        QVERIFY(decoded.refusals.isEmpty());
    }

    void invalidUtf8IsRejected_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("Latin-1") << QByteArray("na\xefve");
        QTest::newRow("cut short") << QByteArray("\xe2\x82");
        QTest::newRow("overlong") << QByteArray("\xc0\xaf");
        QTest::newRow("surrogate") << QByteArray("\xed\xa0\x80");
        QTest::newRow("beyond Unicode") << QByteArray("\xf4\x90\x80\x80");
        QTest::newRow("bytes") << QByteArray("\xff\xfe\x00\x01");
    }

    void invalidUtf8IsRejected()
    {
        QFETCH(QByteArray, bytes);
        const DecodedContent decoded = decode(textUnder("UTF8_STRING", bytes));

        QVERIFY(!decoded.content.text);
        QCOMPARE(decoded.refusals, invalidText);
    }

    void rejectedFormatDoesNotAffectTheOthers()
    {
        RawContent raw = textUnder("UTF8_STRING", "\xff");
        raw.rtf = QByteArrayList{"{\\rtf1", " x}"};
        raw.image = QByteArrayList{"no image"};
        const DecodedContent decoded = decode(raw);

        QCOMPARE(decoded.content.rtf, std::optional<QByteArray>("{\\rtf1 x}"));
        QVERIFY(!decoded.content.png);
        QCOMPARE(decoded.refusals,
                 invalidText +
                     QStringList{u"Refused the clipboard's image: not an image of a known kind"_s});
    }

    void imagesAndLongTextsCountAsLarge()
    {
        RawContent image;
        image.image = QByteArrayList{"x"};
        QVERIFY(image.isLarge());
        QVERIFY(textUnder("UTF8_STRING", QByteArray(1'000'000, 'x')).isLarge());
        QVERIFY(!textUnder("UTF8_STRING", "short").isLarge());
    }
};

DRIFTBOX_TEST(TestContentDecoding, QCoreApplication)
#include "TestContentDecoding.moc"
