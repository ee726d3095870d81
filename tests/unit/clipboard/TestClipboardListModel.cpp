#include "clipboard/ClipboardListModel.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/ClipboardHistory.h"
#include "unit/core/LocalTimeZone.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// The model with all its signals counted, and watched for their consistency.
struct Rows
{
    explicit Rows(ClipboardHistory& history)
        : model(history.viewModel, history.clock)
    {
    }

    [[nodiscard]] QStringList texts() const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << previewText(model.item(row));
        return texts;
    }
    [[nodiscard]] QVariant data(int row, int role) const
    {
        return model.data(model.index(row), role);
    }

    ClipboardListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy moved{&model, &QAbstractItemModel::rowsMoved};
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};
};

} // namespace

class TestClipboardListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_history = std::make_unique<ClipboardHistory>(); }

    void startsWithTheExistingItems()
    {
        fill(u"cba"_s);
        const Rows rows(*m_history);
        QCOMPARE(rows.texts(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
        QCOMPARE(rows.model.item(1).textContent, u"b"_s);
        QCOMPARE(rows.model.rowOf(rows.model.item(1).id), 1);
        QCOMPARE(rows.model.rowOf(ClipboardItemId::random()), -1);
        QCOMPARE(rows.model.rowCount(rows.model.index(0)), 0);
    }

    void captureInsertsOneRowAndRemovesThePrunedOne()
    {
        fill(u"cba"_s);
        m_history->settings.setClipboardCapacity(3);
        const Rows rows(*m_history);
        m_history->copy(u"new"_s);
        QCOMPARE(rows.texts(), QStringList({u"new"_s, u"a"_s, u"b"_s}));
        QCOMPARE(rows.inserted.count(), 1);
        QCOMPARE(rows.inserted[0][1].toInt(), 0);
        QCOMPARE(rows.removed.count(), 1);
        QCOMPARE(rows.removed[0][1].toInt(), 2);
        QVERIFY(rows.moved.isEmpty() && rows.changed.isEmpty() && rows.reset.isEmpty());
    }

    void pickingMovesOneRow()
    {
        fill(u"dcba"_s);
        const Rows rows(*m_history);
        const QPersistentModelIndex third = rows.model.index(2);
        m_history->viewModel.pick(rows.model.item(2));
        QCOMPARE(rows.texts(), QStringList({u"c"_s, u"a"_s, u"b"_s, u"d"_s}));
        QCOMPARE(third.row(), 0);
        QCOMPARE(rows.moved.count(), 1);
        QVERIFY(rows.inserted.isEmpty() && rows.removed.isEmpty() && rows.reset.isEmpty());
        m_history->viewModel.pick(rows.model.item(0));
        QCOMPARE(rows.moved.count(), 1);
    }

    void pinningChangesOneRow()
    {
        fill(u"cba"_s);
        const Rows rows(*m_history);
        m_history->viewModel.togglePin(rows.model.item(1));
        QCOMPARE(rows.changed.count(), 1);
        QCOMPARE(rows.changed[0][0].toModelIndex().row(), 1);
        QCOMPARE(rows.changed[0][1].toModelIndex().row(), 1);
        QVERIFY(rows.model.item(1).isPinned());
        QVERIFY(!rows.model.item(0).isPinned());
        QVERIFY(rows.inserted.isEmpty() && rows.removed.isEmpty() && rows.reset.isEmpty());
    }

    void deletingAndClearingRemoveRows()
    {
        fill(u"edcba"_s);
        const Rows rows(*m_history);
        m_history->viewModel.togglePin(rows.model.item(3));
        m_history->viewModel.remove(rows.model.item(1));
        QCOMPARE(rows.texts(), QStringList({u"a"_s, u"c"_s, u"d"_s, u"e"_s}));
        m_history->viewModel.clearUnpinned();
        QCOMPARE(rows.texts(), QStringList(u"d"_s));
        QCOMPARE(rows.removed.count(), 4);
        QVERIFY(rows.reset.isEmpty());
    }

    void itemsWithTheSameIdAreSeparateRows()
    {
        ClipboardItem twin{.textContent = u"one"_s};
        m_history->store.add(twin, std::nullopt); // as a foreign manifest may have them
        twin.textContent = u"two"_s;
        m_history->store.add(twin, std::nullopt);
        fill(u"b"_s);
        const Rows rows(*m_history);
        QCOMPARE(rows.texts(), QStringList({u"b"_s, u"two"_s, u"one"_s}));
        m_history->viewModel.pick(rows.model.item(1));
        QCOMPARE(rows.texts(), QStringList({u"two"_s, u"b"_s, u"one"_s}));
        m_history->viewModel.remove(rows.model.item(0));
        QCOMPARE(rows.texts(), QStringList({u"b"_s, u"one"_s}));
        fill(u"a"_s);
        QCOMPARE(rows.texts(), QStringList({u"a"_s, u"b"_s, u"one"_s}));
    }

    void newQueryResetsTheModel()
    {
        fill(u"cba"_s);
        const Rows rows(*m_history);
        m_history->viewModel.setQuery(u"B"_s);
        QCOMPARE(rows.texts(), QStringList(u"b"_s));
        QCOMPARE(rows.reset.count(), 1);
        m_history->viewModel.setQuery(u"nothing"_s);
        QCOMPARE(rows.model.rowCount(), 0);
        m_history->viewModel.setQuery({});
        QCOMPARE(rows.model.rowCount(), 3);
        QCOMPARE(rows.reset.count(), 3);
    }

    void captureThatDoesNotMatchTheQueryIsNotListed()
    {
        fill(u"cba"_s);
        const Rows rows(*m_history);
        m_history->viewModel.setQuery(u"b"_s);
        m_history->copy(u"x"_s);
        QVERIFY(rows.inserted.isEmpty());
        m_history->copy(u"Bx"_s);
        QCOMPARE(rows.inserted.count(), 1);
        QCOMPARE(rows.texts(), QStringList({u"Bx"_s, u"b"_s}));
    }

    void manyChangesAtOnceResetTheModel()
    {
        m_history->settings.setClipboardCapacity(1000);
        for (int i = 0; i < 100; ++i)
            m_history->copy(QString::number(i));
        const Rows rows(*m_history);
        m_history->viewModel.clearUnpinned();
        QCOMPARE(rows.model.rowCount(), 0);
        QCOMPARE(rows.reset.count(), 1);
        QVERIFY(rows.removed.isEmpty());
    }

    void loadedPictureUpdatesItsRow()
    {
        m_history->copy({.png = picture({10, 10})});
        fill(u"a"_s);
        const Rows rows(*m_history);
        QVERIFY(rows.data(1, ClipboardListModel::PictureRole).value<QImage>().isNull());
        m_history->tasks.runAll();
        QCOMPARE(rows.changed.count(), 1);
        QCOMPARE(rows.changed[0][0].toModelIndex().row(), 1);
        QVERIFY(!rows.data(1, ClipboardListModel::PictureRole).value<QImage>().isNull());
        QVERIFY(rows.data(0, ClipboardListModel::PictureRole).value<QImage>().isNull());
    }

    void pictureOfAnUnlistedItemChangesNothing()
    {
        const auto item = m_history->copy({.png = picture({10, 10})});
        const Rows rows(*m_history);
        (void)m_history->viewModel.image(item);
        m_history->viewModel.setQuery(u"a"_s);
        m_history->tasks.runAll();
        QVERIFY(rows.changed.isEmpty());
    }

    void rowsChangeAsRecognitionBeginsAndEnds()
    {
        const auto first = m_history->copy({.png = QByteArray("1")});
        m_history->copy({.png = QByteArray("22")});
        const Rows rows(*m_history);
        m_history->viewModel.pasteImageText(first);
        QCOMPARE(rows.changed.count(), 1);
        QCOMPARE(rows.changed[0][0].toModelIndex().row(), 0);
        QCOMPARE(rows.changed[0][1].toModelIndex().row(), 1);
        m_history->tasks.runAll();
        QCOMPARE(rows.changed.count(), 2);
    }

    void recognitionMayFinishAfterTheListIsEmptied()
    {
        const auto item = m_history->copy({.png = QByteArray("1")});
        const Rows rows(*m_history);
        m_history->viewModel.pasteImageText(item);
        m_history->viewModel.remove(item);
        m_history->tasks.runAll();
        QCOMPARE(rows.model.rowCount(), 0);
    }

    void textRowsHaveTheirRoles()
    {
        m_history->copy(u" \n two\nlines\t "_s);
        fill(u"a"_s);
        const Rows rows(*m_history);
        QCOMPARE(rows.texts(), QStringList({u"a"_s, u"two\nlines"_s}));
        QCOMPARE(rows.data(1, Qt::AccessibleTextRole).toString(), u"Text: two\nlines"_s);
        QVERIFY(!rows.data(0, Qt::DisplayRole).isValid());
    }

    void previewIsTrimmedUnlessItIsBlank_data()
    {
        QTest::addColumn<std::optional<QString>>("text");
        QTest::addColumn<QString>("preview");
        using Text = std::optional<QString>;
        QTest::newRow("absent") << Text() << u"(empty)"_s;
        QTest::newRow("empty") << Text(u""_s) << u"(empty)"_s;
        QTest::newRow("spaces") << Text(u"   "_s) << u"   "_s;
        QTest::newRow("line breaks") << Text(u"\n\r\n"_s) << u"\n\r\n"_s;
        QTest::newRow("wide space") << Text(u"\u3000字\u3000"_s) << u"字"_s;
        QTest::newRow("inner white space") << Text(u"\ta  b\n\nc\n"_s) << u"a  b\n\nc"_s;
    }
    void previewIsTrimmedUnlessItIsBlank()
    {
        QFETCH(const std::optional<QString>, text);
        QFETCH(const QString, preview);
        QCOMPARE(previewText({.textContent = text}), preview);
    }

    void pictureRowsHaveTheirRoles()
    {
        m_history->copy({.png = picture({10, 10})});
        const Rows rows(*m_history);
        m_history->clock.advance(std::chrono::minutes(5));
        QLocale::setDefault(QLocale::English);
        QCOMPARE(rows.data(0, Qt::AccessibleTextRole).toString(), u"Image, 5 minutes ago"_s);
    }

    void timeIsInTheUsersTimeZone()
    {
        const LocalTimeZone zone("<+0545>-5:45");
        fill(u"a"_s); // on the 9th of May 2026 at 06:13:20 UTC
        const Rows rows(*m_history);
        QCOMPARE(rows.data(0, ClipboardListModel::TimeRole).toString(), u"05-09 11:58:20"_s);
    }

private:
    void fill(const QString& letters)
    {
        for (const QChar letter : letters)
            m_history->copy(QString(letter));
    }

    std::unique_ptr<ClipboardHistory> m_history;
};

DRIFTBOX_TEST(TestClipboardListModel, QCoreApplication)
#include "TestClipboardListModel.moc"
