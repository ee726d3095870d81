#include "settings/SettingsNavigation.h"
#include "settings/SettingsSectionsModel.h"
#include "support/main/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestSettingsNavigation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsOnGeneralWithAllPagesListed()
    {
        const SettingsNavigation navigation;
        QCOMPARE(navigation.selection(), SettingsSection::general);
        QVERIFY(navigation.sidebarQuery().isEmpty());
        QCOMPARE(listed(navigation),
                 QStringList({u"General"_s, u"Clipboard"_s, u"Notes"_s, u"About"_s}));
    }

    void sectionsHaveTheirSubtitlesSymbolsAndColors_data()
    {
        QTest::addColumn<SettingsSection>("section");
        QTest::addColumn<QString>("subtitle");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<int>("color");
        const auto row = [](SettingsSection section, const QString& subtitle, const QString& symbol,
                            SystemColor color) {
            QTest::newRow(qUtf8Printable(symbol))
                << section << subtitle << symbol << static_cast<int>(color);
        };
        row(SettingsSection::general, u"Hotkey, startup, and accessibility."_s, u"gearshape"_s,
            SystemColor::gray);
        row(SettingsSection::clipboard, u"History capacity and clearing."_s, u"doc.on.clipboard"_s,
            SystemColor::blue);
        row(SettingsSection::notes, u"Default color and clearing."_s, u"note.text"_s,
            SystemColor::yellow);
        row(SettingsSection::about, u"About this app."_s, u"info.circle"_s, SystemColor::purple);
    }
    void sectionsHaveTheirSubtitlesSymbolsAndColors()
    {
        QFETCH(const SettingsSection, section);
        QFETCH(const QString, subtitle);
        QFETCH(const QString, symbol);
        QFETCH(const int, color);
        const SettingsSectionLook look = lookOf(section);
        QCOMPARE(look.subtitle, subtitle);
        QCOMPARE(look.systemImage, symbol);
        QCOMPARE(static_cast<int>(look.iconColor), color);
    }

    void queryMatchesTitles_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("titles");
        const QStringList all = {u"General"_s, u"Clipboard"_s, u"Notes"_s, u"About"_s};
        QTest::newRow("small letters") << u"clip"_s << QStringList{u"Clipboard"_s};
        QTest::newRow("capitals") << u"CLIP"_s << QStringList{u"Clipboard"_s};
        QTest::newRow("spaces around") << u"  notes \t"_s << QStringList{u"Notes"_s};
        QTest::newRow("wide spaces") << u"\u3000notes\u00a0"_s << QStringList{u"Notes"_s};
        QTest::newRow("a line break counts") << u"notes\n"_s << QStringList();
        QTest::newRow("only in a subtitle") << u"capacity"_s << QStringList();
        QTest::newRow("several") << u"b"_s << QStringList{u"Clipboard"_s, u"About"_s};
        QTest::newRow("in order") << u"o"_s << QStringList{u"Clipboard"_s, u"Notes"_s, u"About"_s};
        QTest::newRow("only spaces") << u" \t "_s << all;
        QTest::newRow("nothing") << QString() << all;
        QTest::newRow("no pattern") << u".*"_s << QStringList();
        QTest::newRow("long") << QString(100'000, u'a') << QStringList();
    }
    void queryMatchesTitles()
    {
        QFETCH(const QString, query);
        QFETCH(const QStringList, titles);
        SettingsNavigation navigation;
        navigation.setSidebarQuery(query);
        QCOMPARE(listed(navigation), titles);
        navigation.setSidebarQuery({});
        QCOMPARE(listed(navigation).size(), 4);
    }

    void queryKeepsTheOpenPage()
    {
        SettingsNavigation navigation;
        QSignalSpy selected(&navigation, &SettingsNavigation::selectionChanged);
        navigation.setSidebarQuery(u"clip"_s);
        QCOMPARE(navigation.selection(), SettingsSection::general);
        QCOMPARE(selected.count(), 0);
    }

    void observersAreNotifiedOfChangesOnly()
    {
        SettingsNavigation navigation;
        QSignalSpy selected(&navigation, &SettingsNavigation::selectionChanged);
        QSignalSpy queried(&navigation, &SettingsNavigation::sidebarQueryChanged);
        navigation.setSelection(SettingsSection::general);
        navigation.setSidebarQuery({});
        QCOMPARE(selected.count() + queried.count(), 0);
        navigation.setSelection(std::nullopt);
        navigation.setSidebarQuery(u"x"_s);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(queried.count(), 1);
        QCOMPARE(navigation.selection(), std::nullopt);
    }

    void listModelFollowsTheQuery()
    {
        SettingsNavigation navigation;
        SettingsSectionsModel model(navigation);
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        QCOMPARE(model.rowCount(), 4);
        const QModelIndex notes = model.indexOf(SettingsSection::notes);
        QCOMPARE(notes.row(), 2);
        QCOMPARE(notes.data().toString(), u"Notes"_s);
        QCOMPARE(notes.data(SettingsSectionsModel::sectionRole).value<SettingsSection>(),
                 SettingsSection::notes);

        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        navigation.setSidebarQuery(u"note"_s);
        QCOMPARE(model.rowCount(), 1);
        QVERIFY(!model.indexOf(SettingsSection::general).isValid());
        navigation.setSidebarQuery(u"notes"_s); // lists the same
        QCOMPARE(resets.count(), 1);
        navigation.setSidebarQuery(u"nothing of this name"_s);
        QCOMPARE(model.rowCount(), 0);
    }

private:
    static QStringList listed(const SettingsNavigation& navigation)
    {
        QStringList titles;
        for (const SettingsSection section : navigation.filteredSections())
            titles << lookOf(section).title;
        return titles;
    }
};

DRIFTBOX_TEST(TestSettingsNavigation, QCoreApplication)
#include "TestSettingsNavigation.moc"
