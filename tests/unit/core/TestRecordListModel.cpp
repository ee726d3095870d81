#include "core/RecordListModel.h"
#include "core/RowSelection.h"
#include "support/main/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

struct Letter
{
    char16_t id;
    int size = 0;
};

using Letters = std::vector<Letter>;

Letters lettersOf(QStringView text)
{
    Letters letters;
    for (const QChar letter : text)
        letters.push_back({letter.unicode()});
    return letters;
}

/// The first `count` letters of an alphabet that has as many as are needed.
Letters manyLetters(int count, char16_t first = u'a')
{
    Letters letters;
    for (int i = 0; i < count; ++i)
        letters.push_back({static_cast<char16_t>(first + i)});
    return letters;
}

class LetterModel final : public RecordListModel<Letter>
{
public:
    explicit LetterModel(Letters letters)
        : RecordListModel(std::move(letters), nullptr)
    {
    }

    void set(const Letters& letters)
    {
        setRecords(letters,
                   [](const Letter& one, const Letter& other) { return one.size == other.size; });
    }
    void set(QStringView text) { set(lettersOf(text)); }
    using RecordListModel::resetRecords;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(QString(QChar(record(index.row()).id)))
                                       : QVariant();
    }
};

/// A model of the letters of a text with all its signals counted and watched for their consistency.
struct Rows
{
    explicit Rows(QStringView text)
        : Rows(lettersOf(text))
    {
    }
    explicit Rows(Letters letters)
        : model(std::move(letters))
    {
    }

    [[nodiscard]] QString text() const
    {
        QString text;
        for (int row = 0; row < model.rowCount(); ++row)
            text += model.index(row).data().toString();
        return text;
    }

    LetterModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy moved{&model, &QAbstractItemModel::rowsMoved};
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};
};

} // namespace

class TestRecordListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRecordIsFoundByItsRowAndItsId()
    {
        const Rows rows(u"abc");
        QCOMPARE(rows.model.rowCount(), 3);
        QCOMPARE(rows.model.rowCount(rows.model.index(0)), 0);
        QCOMPARE(rows.model.record(1).id, u'b');
        QCOMPARE(rows.model.rowOf(u'c'), 2);
        QCOMPARE(rows.model.rowOf(u'x'), -1);
    }

    void rowsComeGoAndMoveOneByOne_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("inserted");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("moved");
        QTest::newRow("the same") << u"abc"_s << u"abc"_s << 0 << 0 << 0;
        QTest::newRow("first row") << u""_s << u"a"_s << 1 << 0 << 0;
        QTest::newRow("in front") << u"bc"_s << u"abc"_s << 1 << 0 << 0;
        QTest::newRow("between") << u"ac"_s << u"abc"_s << 1 << 0 << 0;
        QTest::newRow("behind") << u"ab"_s << u"abc"_s << 1 << 0 << 0;
        QTest::newRow("front gone") << u"abc"_s << u"bc"_s << 0 << 1 << 0;
        QTest::newRow("two gone") << u"abcd"_s << u"bc"_s << 0 << 2 << 0;
        QTest::newRow("all gone") << u"abc"_s << u""_s << 0 << 3 << 0;
        QTest::newRow("to the front") << u"abcd"_s << u"cabd"_s << 0 << 0 << 1;
        QTest::newRow("last to the front") << u"abcd"_s << u"dabc"_s << 0 << 0 << 1;
        QTest::newRow("neighbors swap") << u"abcd"_s << u"acbd"_s << 0 << 0 << 1;
        QTest::newRow("reversed") << u"abcd"_s << u"dcba"_s << 0 << 0 << 3;
        QTest::newRow("in front, and the last one gone") << u"bcd"_s << u"abc"_s << 1 << 1 << 0;
        QTest::newRow("all of it") << u"abcd"_s << u"dxb"_s << 1 << 2 << 1;
        QTest::newRow("others") << u"abc"_s << u"xyz"_s << 3 << 3 << 0;
    }
    void rowsComeGoAndMoveOneByOne()
    {
        QFETCH(const QString, before);
        QFETCH(const QString, after);
        QFETCH(const int, inserted);
        QFETCH(const int, removed);
        QFETCH(const int, moved);
        Rows rows(before);
        rows.model.set(after);
        QCOMPARE(rows.text(), after);
        QCOMPARE(rows.inserted.count(), inserted);
        QCOMPARE(rows.removed.count(), removed);
        QCOMPARE(rows.moved.count(), moved);
        QVERIFY(rows.changed.isEmpty());
        QVERIFY(rows.reset.isEmpty());
    }

    void onlyRowsThatShowSomethingElseChange()
    {
        Rows rows(u"abc");
        rows.model.set({{.id = u'x'}, {.id = u'a'}, {.id = u'b', .size = 2}, {.id = u'c'}});
        QCOMPARE(rows.changed.count(), 1);
        QCOMPARE(rows.changed[0][0].toModelIndex().row(), 2);
        QCOMPARE(rows.changed[0][1].toModelIndex().row(), 2);
        QCOMPARE(rows.model.record(2).size, 2);
    }

    void whatARowStandsForIsFollowed()
    {
        Rows rows(u"abcd");
        const QPersistentModelIndex kept = rows.model.index(2);
        const QPersistentModelIndex lost = rows.model.index(1);
        rows.model.set(u"xdca");
        QCOMPARE(kept.row(), 2);
        QCOMPARE(kept.data().toString(), u"c"_s);
        QVERIFY(!lost.isValid());
    }

    void aLargeChangeStartsOver_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::addColumn<bool>("startsOver");
        QTest::newRow("as many in as are told") << 1 << 65 << false;
        QTest::newRow("one more in") << 1 << 66 << true;
        QTest::newRow("as many out as are told") << 65 << 1 << false;
        QTest::newRow("one more out") << 66 << 1 << true;
    }
    void aLargeChangeStartsOver()
    {
        QFETCH(const int, before);
        QFETCH(const int, after);
        QFETCH(const bool, startsOver);
        Rows rows(manyLetters(before));
        rows.model.set(manyLetters(after));
        QCOMPARE(rows.model.rowCount(), after);
        QCOMPARE(rows.reset.count(), startsOver ? 1 : 0);
        QCOMPARE(rows.inserted.isEmpty() && rows.removed.isEmpty(), startsOver);
    }

    void inAndOutCountTogether()
    {
        Rows rows(manyLetters(40));
        rows.model.set(manyLetters(40, u'a' + 33));
        QCOMPARE(rows.reset.count(), 1);
        QCOMPARE(rows.model.record(0).id, static_cast<char16_t>(u'a' + 33));
    }

    void recordsOfTheSameIdStartOver()
    {
        Rows rows(u"abc");
        rows.model.set(u"abb");
        QCOMPARE(rows.text(), u"abb"_s);
        QCOMPARE(rows.reset.count(), 1);
        rows.model.set(u"ab");
        QCOMPARE(rows.text(), u"ab"_s);
        QCOMPARE(rows.reset.count(), 2);
    }

    void resettingStartsOverEvenWithTheSame()
    {
        Rows rows(u"ab");
        rows.model.resetRecords(lettersOf(u"ab"));
        QCOMPARE(rows.reset.count(), 1);
        QVERIFY(rows.inserted.isEmpty() && rows.removed.isEmpty());
    }

    void aSelectionHasNothingWhileThereIsNoRow()
    {
        Rows rows(u"");
        const RowSelection selection(rows.model);
        QCOMPARE(selection.row(), -1);
        rows.model.set(u"ab");
        QCOMPARE(selection.row(), 0);
        rows.model.set(u"");
        QCOMPARE(selection.row(), -1);
        rows.model.resetRecords({});
        QCOMPARE(selection.row(), -1);
    }
};

DRIFTBOX_TEST(TestRecordListModel, QCoreApplication)
#include "TestRecordListModel.moc"
