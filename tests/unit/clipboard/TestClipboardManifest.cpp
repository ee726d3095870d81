#include "clipboard/ClipboardManifest.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const auto id = *ClipboardItemId::fromText(u"6f9619ff-8b86-d011-b42d-00c04fc964ff");
constexpr auto idText = "6F9619FF-8B86-D011-B42D-00C04FC964FF";

ClipboardItem textItem(const QString& text)
{
    return {
        .id = id, .textContent = text, .createdAt = Instant::fromReferenceSeconds(700'000'000.125)};
}

/// JSON with its quotes written as apostrophes.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

QByteArray element(const QByteArray& members)
{
    return json("[{" + members + "}]");
}

} // namespace

class TestClipboardManifest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreWrittenCompactlyAndInOrder()
    {
        ClipboardItem item = textItem(u"a/b \"ü\"\n"_s);
        item.imageFileName = u"x.png"_s;
        item.rtfData = QByteArray("{\\rtf1/\xff}");
        item.pinnedAt = Instant::fromReferenceSeconds(700'000'001.5);

        const QByteArray expected =
            json(QByteArray("[{'id':'") + idText +
                 "','kind':'text','textContent':'a\\/b \\'ü\\'\\n','imageFileName':'x.png',"
                 "'rtfData':'e1xydGYxL\\/99','createdAt':700000000.125,'pinnedAt':700000001.5}]");
        QCOMPARE(ClipboardManifest::Writer().encode({item}), expected);
    }

    void absentMembersAreOmitted()
    {
        const ClipboardItem image{
            .id = id, .kind = ClipboardItem::Kind::image, .createdAt = Instant()};
        QCOMPARE(ClipboardManifest::encode(image),
                 json(QByteArray("{'id':'") + idText + "','kind':'image','createdAt':0.0}"));
        QVERIFY(ClipboardManifest::encode(textItem(QString())).contains(json("'textContent':''")));
    }

    void itemsSurviveARoundTrip()
    {
        std::vector<ClipboardItem> items = {
            textItem(u"one"_s),
            {.kind = ClipboardItem::Kind::image,
             .createdAt = Instant::fromReferenceSeconds(1.0 / 3)},
            {.textContent = u"nul \0 and \U0001F600"_s,
             .rtfData = QByteArray("\0\1\2", 3),
             .createdAt = Instant::fromReferenceSeconds(-5e8),
             .pinnedAt = Instant::fromReferenceSeconds(700'000'000.000001)},
        };
        const auto decoded = ClipboardManifest::decode(ClipboardManifest::Writer().encode(items));
        QVERIFY(decoded);
        QVERIFY(*decoded == items);
        QVERIFY(ClipboardManifest::decode("[]"));
        QCOMPARE(ClipboardManifest::Writer().encode({}), "[]");
    }

    void writerReencodesChangedItems()
    {
        ClipboardManifest::Writer writer;
        ClipboardItem first = textItem(u"one"_s);
        const ClipboardItem second{.textContent = u"two"_s};
        const auto writtenBack = [&writer](const std::vector<ClipboardItem>& items) {
            return *ClipboardManifest::decode(writer.encode(items)) == items;
        };
        QVERIFY(writtenBack({first}));
        QVERIFY(writtenBack({second, first}));
        first.pinnedAt = Instant::fromReferenceSeconds(3);
        QVERIFY(writtenBack({first, second}));
        first.pinnedAt = Instant::fromReferenceSeconds(4);
        QVERIFY(writtenBack({first, second}));
        first.pinnedAt.reset();
        QVERIFY(writtenBack({first}));
        QVERIFY(writtenBack({}));
    }

    void itemsWithTheSameIdKeepTheirContents()
    {
        ClipboardManifest::Writer writer;
        const std::vector twins = {textItem(u"one"_s), textItem(u"two"_s)};
        for (int writing = 0; writing < 3; ++writing)
            QVERIFY(*ClipboardManifest::decode(writer.encode(twins)) == twins);
        const std::vector swapped = {twins[1], twins[0]};
        QVERIFY(*ClipboardManifest::decode(writer.encode(swapped)) == swapped);
    }

    void readingToleratesOrderUnknownMembersNullsAndAnyNotation()
    {
        const auto decoded = ClipboardManifest::decode(
            json(" [ {'later':[{}],'createdAt':7e8,"
                 "            'pinnedAt':null,'rtfData':null,'textContent':'a/b\\/c','kind':'text',"
                 "            'id':'6f9619ff-8b86-d011-b42d-00c04fc964ff'} ] "));
        QVERIFY(decoded);
        QCOMPARE(decoded->size(), size_t(1));
        const ClipboardItem& item = decoded->front();
        QCOMPARE(item.id, id);
        QCOMPARE(item.textContent, u"a/b/c"_s);
        QCOMPARE(item.createdAt.referenceSeconds(), 7e8);
        QVERIFY(!item.isPinned());
        QVERIFY(!item.rtfData);
    }

    void integersBeyondSixtyFourBitsAreAccepted()
    {
        const QByteArray text = element("'id':'6F9619FF-8B86-D011-B42D-00C04FC964FF','kind':'text',"
                                        "'createdAt':123456789012345678901");
        QCOMPARE(ClipboardManifest::decode(text)->front().createdAt.referenceSeconds(),
                 123456789012345678901.0);
    }

    void singleViolationRejectsTheWholeManifest_data()
    {
        QTest::addColumn<QByteArray>("text");
        const QByteArray good =
            "'id':'6F9619FF-8B86-D011-B42D-00C04FC964FF','kind':'text','createdAt':1";
        const auto broken = [&good](const char* part, const char* replacement) {
            return element(QByteArray(good).replace(part, replacement));
        };
        const auto with = [&good](const char* member) {
            return element(QByteArray(good + ',' + member));
        };
        QTest::newRow("no JSON") << QByteArray("[{");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("trailing text") << QByteArray("[] x");
        QTest::newRow("object") << QByteArray("{}");
        QTest::newRow("element is no object") << QByteArray("[1]");
        QTest::newRow("invalid UTF-8") << with("'textContent':'\xff'");
        QTest::newRow("no id") << broken("'id'", "'ID'");
        QTest::newRow("id is no UUID") << broken("6F9619FF", "6F9619F!");
        QTest::newRow("id without dashes") << broken("-", "");
        QTest::newRow("id is a number") << element("'id':1,'kind':'text','createdAt':1");
        QTest::newRow("unknown kind") << broken("text", "file");
        QTest::newRow("no kind") << broken("'kind'", "'sort'");
        QTest::newRow("kind is null") << broken("'text'", "null");
        QTest::newRow("no creation time") << broken("createdAt", "created");
        QTest::newRow("creation time is text") << broken(":1", ":'1'");
        QTest::newRow("text is a number") << with("'textContent':5");
        QTest::newRow("file name is an array") << with("'imageFileName':[]");
        QTest::newRow("bad Base64") << with("'rtfData':'a*b='");
        QTest::newRow("Base64 without padding") << with("'rtfData':'YQ'");
        QTest::newRow("pinning time is a boolean") << with("'pinnedAt':true");
        QTest::newRow("good, then bad") << json("[{" + good + "},{}]");
        QTest::newRow("nested beyond reason") << QByteArray(1'000'000, '[');
    }
    void singleViolationRejectsTheWholeManifest()
    {
        QFETCH(const QByteArray, text);
        const auto decoded = ClipboardManifest::decode(text);
        QVERIFY(!decoded);
        QVERIFY(!decoded.error().message.isEmpty());
    }

    void imageFileNameDefaultsToTheId()
    {
        ClipboardItem item{.id = id, .kind = ClipboardItem::Kind::image};
        const QString byId = QString::fromLatin1(idText) + u".png"_s;
        QCOMPARE(item.imageFile(), byId);
        item.imageFileName = u"Shot 1.png"_s;
        QCOMPARE(item.imageFile(), u"Shot 1.png"_s);
    }

    void imageFileNameNeverLeavesTheFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("parent") << u"../manifest.json"_s;
        QTest::newRow("absolute") << u"/etc/passwd"_s;
        QTest::newRow("sub-folder") << u"a/b.png"_s;
        QTest::newRow("dots") << u".."_s;
        QTest::newRow("dot") << u"."_s;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("nul") << QString(u"a\0b"_s);
    }
    void imageFileNameNeverLeavesTheFolder()
    {
        QFETCH(const QString, name);
        const ClipboardItem item{
            .id = id, .kind = ClipboardItem::Kind::image, .imageFileName = name};
        QCOMPARE(item.imageFile(), QString::fromLatin1(idText) + u".png"_s);
    }
};

DRIFTBOX_TEST(TestClipboardManifest, QCoreApplication)
#include "TestClipboardManifest.moc"
