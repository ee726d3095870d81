#include "platform/selection/OfferedContent.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

OfferedContent offer(const QString& text)
{
    return OfferedContent({.text = text, .rtf = {}, .png = {}});
}

QByteArray readInParts(ByteStream& stream, qsizetype size)
{
    QByteArray all;
    for (QByteArray part = stream.next(size); !part.isEmpty(); part = stream.next(size)) {
        if (part.size() > size)
            return "a part is too large";
        all += part;
    }
    return all;
}

} // namespace

class TestOfferedContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyContentOffersNothing()
    {
        QVERIFY(OfferedContent().targets().isEmpty());
        QVERIFY(OfferedContent(PasteboardContent()).targets().isEmpty());
    }

    void everyFormatHasItsTargets()
    {
        const OfferedContent content({.text = u"x"_s, .rtf = "{}", .png = "png"},
                                     {{"text/html", "<p>x"}});

        QCOMPARE(content.targets(),
                 QByteArrayList({"image/png", "UTF8_STRING", "text/plain;charset=utf-8",
                                 "text/plain", "TEXT", "STRING", "text/rtf", "application/rtf",
                                 "text/richtext", "text/html"}));
        for (const QByteArray& target : content.targets())
            QVERIFY(!content.open(target)->next(100).isEmpty());
    }

    void latin1IsOfferedOnlyForTextThatFits()
    {
        QVERIFY(offer(u"na\u00efve"_s).targets().contains("STRING"));
        QVERIFY(offer(u""_s).targets().contains("STRING"));
        QVERIFY(!offer(u"\u20ac"_s).targets().contains("STRING"));
        QVERIFY(!offer(u"\U0001F600"_s).targets().contains("STRING"));
        QVERIFY(!offer(QString(2'000'000, u'x')).targets().contains("STRING"));
    }

    void onlyTheTextTargetIsAnsweredWithAnotherType()
    {
        QCOMPARE(OfferedContent::typeOf("TEXT"), "UTF8_STRING");
        QCOMPARE(OfferedContent::typeOf("text/plain"), "text/plain");
    }

    void incrementsAddUpToTheWhole_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("short") << u"a \u00e9 \u20ac \U0001F600"_s;
        QTest::newRow("long") << u"a \u00e9 \u20ac \U0001F600"_s.repeated(150'000);
        QTest::newRow("long pairs") << u"\U0001F600"_s.repeated(600'000);
        QTest::newRow("long, odd pairs") << u'x' + u"\U0001F600"_s.repeated(600'000);
        QTest::newRow("long, broken pairs") << QString(1'200'000, QChar(0xd83d));
    }

    void incrementsAddUpToTheWhole()
    {
        QFETCH(QString, text);
        for (const qsizetype size : {1'000, 1'001, 1'002, 262'000, 100'000'000}) {
            const auto stream = offer(text).open("UTF8_STRING");
            QVERIFY(stream->minRemaining() <= text.toUtf8().size());
            QVERIFY(stream->maxRemaining() >= text.toUtf8().size());
            QCOMPARE(readInParts(*stream, size), text.toUtf8());
            QCOMPARE(stream->maxRemaining(), 0);
        }
    }
};

DRIFTBOX_TEST(TestOfferedContent, QCoreApplication)
#include "TestOfferedContent.moc"
