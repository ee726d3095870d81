#include "core/Identifier.h"
#include "core/Json.h"
#include "core/JsonFields.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

using Id = Identifier<struct SomethingTag>;

Json::Value parsed(const QByteArray& text, Json::Numbers numbers = Json::Numbers::asWritten)
{
    auto value = Json::parse(text, numbers);
    return value ? std::move(*value) : nullptr;
}

QByteArray roundTrip(const QByteArray& text)
{
    const Json::Value value = parsed(text);
    return value ? Json::compactText(*value) : QByteArray();
}

} // namespace

class TestJson : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void membersKeepTheirOrderWithoutWhitespace()
    {
        QCOMPARE(roundTrip(R"({ "z" : 1, "a" : [ true, null ], "m" : { } })"),
                 R"({"z":1,"a":[true,null],"m":{}})");
    }

    void slashesAreEscaped() { QCOMPARE(roundTrip(R"(["a/b","\/"])"), R"(["a\/b","\/"])"); }

    void textSurvivesARoundTrip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("controls") << u"\b\f\n\r\t\u0001\u007f"_s;
        QTest::newRow("zero") << QString(u"a\0b"_s);
        QTest::newRow("quotes") << u"\"\\/"_s;
        QTest::newRow("beyond the plane") << u"\U0001f600\u00e9\u2028\ufeff"_s;
    }
    void textSurvivesARoundTrip()
    {
        QFETCH(const QString, text);
        const Json::Value list(json_array());
        json_array_append_new(list.get(), Json::string(text).release());
        const Json::Value again = parsed(Json::compactText(*list));
        QVERIFY(again);
        QCOMPARE(Json::toString(json_array_get(again.get(), 0)), text);
    }

    void loneSurrogatesAreTolerated()
    {
        const Json::Value list(json_array());
        QCOMPARE(json_array_append_new(list.get(), Json::string(QString(QChar(0xd800))).release()),
                 0);
        QVERIFY(parsed(Json::compactText(*list)));
    }

    void errorsDoNotQuoteTheText_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const char* text, const QString& error) {
            QTest::newRow(name) << QByteArray(text) << error;
        };
        row("torn off", "[\"secret", u"premature end of input at line 1, column 8"_s);
        row("bad escape", "[\"secret\\q\"]", u"invalid escape at line 1, column 10"_s);
        row("no comma", "[\n\"secret\" 1]", u"']' expected at line 2, column 10"_s);
        row("no string", "[secret]", u"invalid token at line 1, column 7"_s);
        row("no UTF-8", "[\"secret\xff\"]", u"unable to decode byte 0xff at line 1, column 8"_s);
        row("quoted end", "[\"secret near '\"",
            u"']' expected near end of file at line 1, column 16"_s);
    }
    void errorsDoNotQuoteTheText()
    {
        QFETCH(const QByteArray, text);
        const auto parsed = Json::parse(text, Json::Numbers::asReals);
        QVERIFY(!parsed);
        QTEST(parsed.error().message, "error");
    }

    void numbersAreConvertedToTheRequestedType()
    {
        QVERIFY(json_is_integer(json_array_get(parsed("[1]").get(), 0)));
        QVERIFY(json_is_real(json_array_get(parsed("[1.0]").get(), 0)));
        const Json::Value reals = parsed("[1,123456789012345678901]", Json::Numbers::asReals);
        QCOMPARE(Json::toDouble(json_array_get(reals.get(), 0)), 1.0);
        QCOMPARE(Json::toDouble(json_array_get(reals.get(), 1)), 123456789012345678901.0);
    }

    void instantsSurviveARoundTripExactly()
    {
        for (const double seconds : {0.0, -0.5, 738'936'000.1, 1.0 / 3.0, 7.0e8 + 1e-7}) {
            const Json::Value list(json_array());
            const Instant instant = Instant::fromReferenceSeconds(seconds);
            json_array_append_new(list.get(), Json::number(instant).release());
            const Json::Value again = parsed(Json::compactText(*list));
            QVERIFY(Json::toInstant(json_array_get(again.get(), 0)) == instant);
        }
    }

    void malformedTextIsRejectedWithAReason_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("torn") << QByteArray(R"({"a":)");
        QTest::newRow("trailing") << QByteArray("{}{}");
        QTest::newRow("bare") << QByteArray("1");
        QTest::newRow("comment") << QByteArray("[] // x");
        QTest::newRow("comma") << QByteArray("[1,]");
        QTest::newRow("invalid UTF-8") << QByteArray("[\"\xc3\x28\"]");
        QTest::newRow("overlong UTF-8") << QByteArray("[\"\xc0\xaf\"]");
        QTest::newRow("half a pair") << QByteArray(R"(["\ud800"])");
        QTest::newRow("too deep") << QByteArray(1'000'000, '[');
        QTest::newRow("overflow") << QByteArray("[1e999]");
        QTest::newRow("no number") << QByteArray("[NaN]");
    }
    void malformedTextIsRejectedWithAReason()
    {
        QFETCH(const QByteArray, text);
        const auto result = Json::parse(text, Json::Numbers::asReals);
        QVERIFY(!result);
        QVERIFY(!result.error().message.isEmpty());
    }

    void conversionsRejectOtherTypes()
    {
        const Json::Value values = parsed(R"([null,true,1,1.5,"x",[],{}])");
        const auto at = [&](size_t index) { return json_array_get(values.get(), index); };
        for (size_t i = 0; i < json_array_size(values.get()); ++i) {
            QCOMPARE(Json::toBool(at(i)).has_value(), i == 1);
            QCOMPARE(Json::toDouble(at(i)).has_value(), i == 2 || i == 3);
            QCOMPARE(Json::toInstant(at(i)).has_value(), i == 2 || i == 3);
            QCOMPARE(Json::toString(at(i)).has_value(), i == 4);
            QVERIFY(!Json::toBytes(at(i)));
            QVERIFY(!Json::toIdentifier<Id>(at(i)));
        }
        QVERIFY(!Json::toString(nullptr));
        QVERIFY(!Json::toDouble(nullptr));
    }

    void bytesAreEncodedAsStandardBase64()
    {
        const auto bytes = [](const QString& text) {
            return Json::toBytes(Json::string(text).get());
        };
        QCOMPARE(bytes(u""_s), QByteArray());
        QCOMPARE(bytes(u"e1xydGYxfQ=="_s), QByteArray(R"({\rtf1})"));
        QCOMPARE(bytes(u"//79"_s), QByteArray("\xff\xfe\xfd"));
        for (const QString& bad :
             {u"e1xydGYxfQ"_s, u"__79"_s, u"e1x!"_s, u"e1 x"_s, u"\u00e41xy"_s})
            QVERIFY2(!bytes(bad), qUtf8Printable(bad));
    }

    void firstMissingOrMalformedFieldIsNamed()
    {
        const Json::Value object = parsed(R"({"b":true,"s":"x","n":null,"unknown":[]})");

        JsonFields good(object.get());
        QCOMPARE(good.required("s", Json::toString), u"x"_s);
        QCOMPARE(good.required("b", Json::toBool), true);
        QCOMPARE(good.optional("n", Json::toString), std::nullopt);
        QCOMPARE(good.optional("absent", Json::toString), std::nullopt);
        QVERIFY(good.error().isEmpty());

        JsonFields bad(object.get());
        QCOMPARE(bad.optional("b", Json::toString), std::nullopt);
        QCOMPARE(bad.required("absent", Json::toString), std::nullopt);
        QCOMPARE(bad.error(), u"\"b\" is malformed"_s);

        JsonFields missing(object.get());
        QCOMPARE(missing.required("n", Json::toString), std::nullopt);
        QCOMPARE(missing.error(), u"\"n\" is missing"_s);
    }

    void readingFieldsOfANonObjectIsAnError()
    {
        const Json::Value list = parsed("[]");
        JsonFields fields(list.get());
        QCOMPARE(fields.required("a", Json::toString), std::nullopt);
        QCOMPARE(fields.error(), u"not an object"_s);
        QCOMPARE(JsonFields(nullptr).error(), u"not an object"_s);
    }
};

DRIFTBOX_TEST(TestJson, QCoreApplication)
#include "TestJson.moc"
