#include "core/JsonRecords.h"
#include "notes/NotesManifest.h"
#include "support/main/TestMain.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const auto id = *StickyNoteId::fromText(u"6f9619ff-8b86-d011-b42d-00c04fc964ff");
constexpr auto idText = "6F9619FF-8B86-D011-B42D-00C04FC964FF";

StickyNote fullNote()
{
    return {
        .id = id,
        .textContent = u"a/b \"ü\"\n"_s,
        .imageFileName = u"x.png"_s,
        .color = NoteColor::pink,
        .frame = {-1160.5, 635, 240, 200.25},
        .zoom = 1.5,
        .isSaved = true,
        .createdAt = Instant::fromReferenceSeconds(700'000'000.125),
        .updatedAt = Instant::fromReferenceSeconds(700'000'001.5),
    };
}

/// JSON with its quotes written as apostrophes.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

const QByteArray goodMembers =
    "'id':'6F9619FF-8B86-D011-B42D-00C04FC964FF','kind':'text','color':'blue',"
    "'frame':{'x':1,'y':2,'width':3,'height':4},'createdAt':5,'updatedAt':6";

QByteArray element(const QByteArray& members)
{
    return json("[{" + members + "}]");
}

QByteArray manifest(const std::vector<StickyNote>& notes)
{
    std::vector<QByteArray> objects;
    for (const StickyNote& note : notes)
        objects.push_back(NotesManifest::encode(note));
    return JsonRecords::join(objects);
}

} // namespace

class TestNotesManifest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreWrittenCompactlyAndInOrder()
    {
        QCOMPARE(
            NotesManifest::encode(fullNote()),
            json(QByteArray("{'id':'") + idText +
                 "','kind':'text','textContent':'a\\/b \\'ü\\'\\n','imageFileName':'x.png',"
                 "'color':'pink','frame':{'x':-1160.5,'y':635.0,'width':240.0,'height':200.25},"
                 "'zoom':1.5,'isSaved':true,'createdAt':700000000.125,'updatedAt':700000001.5}"));
    }

    void absentMembersAreOmitted()
    {
        const QByteArray image =
            NotesManifest::encode({.kind = StickyNote::Kind::image, .imageFileName = u"x.png"_s});
        QVERIFY(!image.contains("textContent"));
        QVERIFY(image.contains(json("'kind':'image','imageFileName':'x.png'")));

        const QByteArray text = NotesManifest::encode({.textContent = u""_s});
        QVERIFY(!text.contains("imageFileName"));
        QVERIFY(text.contains(json("'textContent':''")));
    }

    void notesSurviveARoundTrip()
    {
        std::vector<StickyNote> notes = {
            fullNote(),
            {.kind = StickyNote::Kind::image, .createdAt = Instant::fromReferenceSeconds(1.0 / 3)},
            {.textContent = u"nul \0 and \U0001F600"_s,
             .frame = {0.1, -1e300, 1e-300, 1.0 / 3},
             .zoom = 1.61051,
             .updatedAt = Instant::fromReferenceSeconds(700'000'000.000001)},
        };
        for (const NoteColor color : allNoteColors)
            notes.push_back({.color = color});
        const auto decoded = NotesManifest::decode(manifest(notes));
        QVERIFY(decoded);
        QVERIFY(*decoded == notes);
        QVERIFY(NotesManifest::decode("[]"));
    }

    void missingZoomAndSavedStateMeanADraftOfNormalSize()
    {
        for (const QByteArray& more : {QByteArray(), QByteArray(",'zoom':null,'isSaved':null")}) {
            const auto decoded = NotesManifest::decode(element(goodMembers + more));
            QVERIFY(decoded);
            QCOMPARE(decoded->front().zoom, 1.0);
            QVERIFY(!decoded->front().isSaved);
            QVERIFY(!decoded->front().textContent);
            QCOMPARE(decoded->front().frame, (NoteFrame{1, 2, 3, 4}));
        }
    }

    void readingToleratesOrderUnknownMembersNullsAndAnyNotation()
    {
        const auto decoded = NotesManifest::decode(
            json(" [ {'later':[{}],'updatedAt':7e8,'createdAt':123456789012345678901,"
                 "'textContent':null,'imageFileName':null,'color':'green','isSaved':true,"
                 "'frame':{'height':0,'width':-5,'depth':9,'y':1e300,'x':0},'kind':'image',"
                 "'id':'6f9619ff-8b86-d011-b42d-00c04fc964ff'} ] "));
        QVERIFY(decoded);
        QCOMPARE(decoded->size(), size_t(1));
        const StickyNote& note = decoded->front();
        QCOMPARE(note.id, id);
        QCOMPARE(note.frame, (NoteFrame{0, 1e300, -5, 0}));
        QCOMPARE(note.createdAt.referenceSeconds(), 123456789012345678901.0);
    }

    void singleViolationRejectsTheWholeManifest_data()
    {
        QTest::addColumn<QByteArray>("text");
        const auto broken = [](const char* part, const char* replacement) {
            return element(QByteArray(goodMembers).replace(part, replacement));
        };
        const auto with = [](const char* member) { return element(goodMembers + ',' + member); };
        QTest::newRow("no JSON") << QByteArray("[{");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("trailing text") << QByteArray("[] x");
        QTest::newRow("object") << QByteArray("{}");
        QTest::newRow("element is no object") << QByteArray("[[]]");
        QTest::newRow("invalid UTF-8") << with("'textContent':'\xff'");
        QTest::newRow("no id") << broken("'id'", "'ID'");
        QTest::newRow("id is no UUID") << broken("6F9619FF", "6F9619F!");
        QTest::newRow("unknown kind") << broken("text", "file");
        QTest::newRow("no kind") << broken("'kind'", "'sort'");
        QTest::newRow("text is a number") << with("'textContent':5");
        QTest::newRow("file name is an array") << with("'imageFileName':[]");
        QTest::newRow("unknown color") << broken("blue", "purple");
        QTest::newRow("color in capitals") << broken("blue", "Blue");
        QTest::newRow("no color") << broken("'color'", "'tint'");
        QTest::newRow("color is null") << broken("'blue'", "null");
        QTest::newRow("no frame") << broken("'frame'", "'rect'");
        QTest::newRow("frame is an array") << broken("{'x':1,'y':2,'width':3,'height':4}", "[1]");
        QTest::newRow("frame without x") << broken("'x'", "'X'");
        QTest::newRow("frame without y") << broken("'y'", "'Y'");
        QTest::newRow("frame without width") << broken("'width'", "'w'");
        QTest::newRow("frame without height") << broken("'height'", "'h'");
        QTest::newRow("height is text") << broken("'height':4", "'height':'4'");
        QTest::newRow("height is null") << broken("'height':4", "'height':null");
        QTest::newRow("height is beyond all numbers") << broken("'height':4", "'height':1e999");
        QTest::newRow("height is not a number") << broken("'height':4", "'height':NaN");
        QTest::newRow("zoom is text") << with("'zoom':'1'");
        QTest::newRow("saved state is a number") << with("'isSaved':1");
        QTest::newRow("no creation time") << broken("createdAt", "created");
        QTest::newRow("no update time") << broken("updatedAt", "updated");
        QTest::newRow("update time is a boolean") << broken("'updatedAt':6", "'updatedAt':true");
        QTest::newRow("good, then bad") << json("[{" + goodMembers + "},{}]");
        QTest::newRow("nested beyond reason") << QByteArray(1'000'000, '[');
    }
    void singleViolationRejectsTheWholeManifest()
    {
        QFETCH(const QByteArray, text);
        const auto decoded = NotesManifest::decode(text);
        QVERIFY(!decoded);
        QVERIFY(!decoded.error().message.isEmpty());
    }

    void errorNamesThePosition()
    {
        const auto decoded = NotesManifest::decode(json(
            "[{" + goodMembers + "},{" + QByteArray(goodMembers).replace("blue", "purple") + "}]"));
        QCOMPARE(decoded.error().message, u"item 1: \"color\" is malformed"_s);
    }

    void equalityAndHashCoverEveryField()
    {
        const StickyNote note = fullNote();
        std::vector<StickyNote> others(13, note);
        others[0].id = StickyNoteId::random();
        others[1].kind = StickyNote::Kind::image;
        others[2].textContent.reset();
        others[3].textContent = u"other"_s;
        others[4].imageFileName.reset();
        others[5].color = NoteColor::yellow;
        others[6].frame.x = 1;
        others[7].frame.height = 1;
        others[8].zoom = 1;
        others[9].isSaved = false;
        others[10].createdAt = Instant();
        others[11].updatedAt = Instant();
        others[12].imageFileName = QString();
        for (const StickyNote& other : others) {
            QVERIFY(note != other);
            QVERIFY(qHash(note) != qHash(other));
        }
        QVERIFY(note == fullNote());
        QCOMPARE(qHash(note), qHash(fullNote()));
    }

    void frameConvertsToARectangleFieldByField()
    {
        const NoteFrame frame{-0.1, 1.0 / 3, 240.7, 1e9};
        QCOMPARE(NoteFrame::fromRect(frame.toRect()), frame);
        QCOMPARE(frame.toRect().x(), frame.x);
        QCOMPARE(frame.toRect().y(), frame.y);
        QCOMPARE(frame.toRect().width(), frame.width);
        QCOMPARE(frame.toRect().height(), frame.height);
    }
};

DRIFTBOX_TEST(TestNotesManifest, QCoreApplication)
#include "TestNotesManifest.moc"
