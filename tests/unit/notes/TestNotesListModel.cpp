#include "core/JsonRecords.h"
#include "notes/NotesListModel.h"
#include "support/main/TestMain.h"
#include "unit/notes/NotesDesk.h"

#include <optional>

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestNotesListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desk.emplace();
        m_model.emplace(manager());
        m_tester.emplace(&*m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_desk.reset();
    }

    void notesAreListedNewestFirst()
    {
        const QSignalSpy inserted(&*m_model, &QAbstractItemModel::rowsInserted);
        desk().open(u"one"_s);
        desk().open(u"two"_s);
        QCOMPARE(previews(), QStringList({u"two"_s, u"one"_s}));
        QCOMPARE(inserted.count(), 2);
        QCOMPARE(inserted.last().at(1).toInt(), 0);
    }

    void rowHasThePropertiesOfItsNote()
    {
        StickyNoteViewModel& note = desk().openSaved(u"\n  Shopping list\n- milk\n"_s);
        note.setColor(NoteColor::green);
        QCOMPARE(previews(), QStringList(u"Shopping list\n- milk"_s));
        QCOMPARE(value(0, Qt::AccessibleTextRole), u"Shopping list\n- milk"_s);
        QCOMPARE(m_model->record(0).kind, StickyNote::Kind::text);
        QCOMPARE(m_model->record(0).color, NoteColor::green);
        QVERIFY(m_model->record(0).isSaved);
        // 800,000,000.25 seconds after the beginning of 2001, in UTC.
        QCOMPARE(value(0, NotesListModel::TimeRole), u"05-09 06:13:20"_s);

        manager().createNote(picture({4, 4}));
        desk().windows.last->viewModel.setText(u"caption"_s);
        QCOMPARE(previews().front(), u"Image"_s);
        QCOMPARE(value(0, Qt::AccessibleTextRole), u"Image"_s);
        QVERIFY(!m_model->record(0).isSaved);
    }

    void emptyNoteHasAPlaceholderPreview()
    {
        desk().open(QString());
        desk().open(u" \n\t\r\n "_s);
        QCOMPARE(previews(), QStringList({u"(empty)"_s, u"(empty)"_s}));
    }

    void changedNoteUpdatesOnlyItsRow()
    {
        StickyNoteViewModel& note = desk().open(u"one"_s);
        desk().open(u"two"_s);
        const QSignalSpy changed(&*m_model, &QAbstractItemModel::dataChanged);
        const QSignalSpy reset(&*m_model, &QAbstractItemModel::modelReset);
        note.setText(u"uno"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.last().at(0).toModelIndex().row(), 1);
        note.setColor(NoteColor::blue);
        note.toggleSaved();
        QCOMPARE(changed.count(), 3);
        note.updateFrame({1, 2, 300, 300}); // is not shown
        QCOMPARE(changed.count(), 3);
        desk().clock.advance(1s);
        note.setZoom(1.1); // is shown as the time of the change
        QCOMPARE(changed.count(), 4);
        QCOMPARE(previews(), QStringList({u"two"_s, u"uno"_s}));
        QCOMPARE(reset.count(), 0);
    }

    void deletedNotesAreRemoved()
    {
        desk().open(u"one"_s);
        const StickyNoteId id = desk().open(u"two"_s).note().id;
        desk().open(u"three"_s);
        const QSignalSpy removed(&*m_model, &QAbstractItemModel::rowsRemoved);
        manager().remove(id);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed.last().at(1).toInt(), 1);
        QCOMPARE(previews(), QStringList({u"three"_s, u"one"_s}));
        QCOMPARE(m_model->rowOf(id), -1);
    }

    void queryIgnoresCase()
    {
        desk().open(u"Buy MILK"_s);
        desk().open(u"call home"_s);
        manager().createNote(picture({4, 4}));
        const QSignalSpy changed(&*m_model, &NotesListModel::queryChanged);
        m_model->setQuery(u"milk"_s);
        QCOMPARE(previews(), QStringList(u"Buy MILK"_s));
        m_model->setQuery(u" \n CALL  "_s);
        QCOMPARE(previews(), QStringList(u"call home"_s));
        m_model->setQuery(u"Image"_s);
        QCOMPARE(m_model->rowCount(), 0);
        m_model->setQuery(u" \n "_s);
        QCOMPARE(m_model->rowCount(), 3);
        QCOMPARE(changed.count(), 4);
    }

    void blankNotesMatchNoQuery()
    {
        desk().open(u"\n\n"_s);
        m_model->setQuery(u"empty"_s);
        QCOMPARE(m_model->rowCount(), 0);
        m_model->setQuery(u"\n"_s);
        QCOMPARE(m_model->rowCount(), 1);
    }

    void noteIsListedOnlyWhileItsTextMatches()
    {
        StickyNoteViewModel& note = desk().open(u"mil"_s);
        m_model->setQuery(u"milk"_s);
        QCOMPARE(m_model->rowCount(), 0);
        note.setText(u"milk"_s);
        QCOMPARE(m_model->rowCount(), 1);
        note.setText(u"mil"_s);
        QCOMPARE(m_model->rowCount(), 0);
    }

    void thousandNotesCanBeSearched()
    {
        for (int count = 0; count < 1000; ++count)
            desk().store->save({.textContent = u"note %1"_s.arg(count), .isSaved = true});
        startOver();
        QCOMPARE(m_model->rowCount(), 1000);
        m_model->setQuery(u"note 99"_s);
        QCOMPARE(m_model->rowCount(), 11);
        m_model->setQuery({});
        QCOMPARE(m_model->rowCount(), 1000);
    }

    // As nothing but a foreign manifest has them.
    void notesWithTheSameIdAreSeparateRows()
    {
        const StickyNote twin{.textContent = u"twin"_s, .isSaved = true};
        const StickyNote other{.textContent = u"tin"_s, .isSaved = true};
        desk().files.setFile(desk().manifestPath, JsonRecords::join({NotesManifest::encode(twin),
                                                                     NotesManifest::encode(other),
                                                                     NotesManifest::encode(twin)}));
        startOver();
        QCOMPARE(previews(), QStringList({u"twin"_s, u"tin"_s, u"twin"_s}));
        m_model->setQuery(u"t"_s);
        manager().focus(twin.id);
        desk().windows.last->viewModel.setText(u"changed"_s); // the first of the two
        QCOMPARE(previews(), QStringList({u"tin"_s, u"twin"_s}));
        desk().windows.last->viewModel.setText(u"twin again"_s);
        QCOMPARE(previews(), QStringList({u"twin again"_s, u"tin"_s, u"twin"_s}));
        manager().remove(twin.id);
        QCOMPARE(previews(), QStringList(u"tin"_s));
    }

    void countTextDependsOnTheNumber()
    {
        QCOMPARE(noteCountText(0), u"0 notes"_s);
        QCOMPARE(noteCountText(1), u"1 note"_s);
        QCOMPARE(noteCountText(3), u"3 notes"_s);
        QCOMPARE(noteCountText(1234), u"1234 notes"_s);
    }

private:
    NotesDesk& desk() { return *m_desk; }
    NoteManager& manager() { return *m_desk->manager; }
    void startOver()
    {
        m_tester.reset();
        m_model.reset();
        desk().restart();
        m_model.emplace(manager());
        m_tester.emplace(&*m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    [[nodiscard]] QVariant value(int row, int role) const { return m_model->index(row).data(role); }
    [[nodiscard]] QStringList previews() const
    {
        QStringList texts;
        for (int row = 0; row < m_model->rowCount(); ++row)
            texts << previewText(m_model->record(row));
        return texts;
    }

    std::optional<NotesDesk> m_desk;
    std::optional<NotesListModel> m_model;
    std::optional<QAbstractItemModelTester> m_tester;
};

DRIFTBOX_TEST(TestNotesListModel, QGuiApplication)
#include "TestNotesListModel.moc"
