#include "core/JsonUserDefaults.h"
#include "fakes/FakeFileSystem.h"
#include "support/main/TestMain.h"

#include <limits>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

const QString folder = u"/config/driftbox"_s;
const QString path = folder + u"/defaults.json"_s;
const QString corruptPath = folder + u"/defaults.corrupt.json"_s;

} // namespace

class TestJsonUserDefaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingFileMeansNoValuesAndIsNotCreated()
    {
        FakeFileSystem files;
        const JsonUserDefaults defaults(files, folder);
        QCOMPARE(defaults.value(u"settings.clipboardCapacity"_s), std::nullopt);
        QCOMPARE(files.writeCount(), 0);
        QVERIFY(!files.folderExists(folder));
    }

    void firstValueCreatesTheFolder()
    {
        FakeFileSystem files;
        JsonUserDefaults defaults(files, folder);
        defaults.setValue(u"a"_s, true);
        QCOMPARE(files.read(path), R"({"a":true})");
        QCOMPARE(files.writeCount(path), 1);
    }

    void valuesKeepTheirTypes_data()
    {
        QTest::addColumn<DefaultsValue>("value");
        QTest::newRow("true") << DefaultsValue(true);
        QTest::newRow("false") << DefaultsValue(false);
        QTest::newRow("zero") << DefaultsValue(qint64(0));
        QTest::newRow("smallest") << DefaultsValue(std::numeric_limits<qint64>::min());
        QTest::newRow("largest") << DefaultsValue(std::numeric_limits<qint64>::max());
        QTest::newRow("whole real") << DefaultsValue(2.0);
        QTest::newRow("fraction") << DefaultsValue(0.1);
        QTest::newRow("empty") << DefaultsValue(QString(u""_s));
        QTest::newRow("text") << DefaultsValue(u"a/b \"quoted\" \u00e4\u732b \n"_s);
        QTest::newRow("digits") << DefaultsValue(u"40"_s);
    }
    void valuesKeepTheirTypes()
    {
        QFETCH(const DefaultsValue, value);
        FakeFileSystem files;
        JsonUserDefaults defaults(files, folder);
        defaults.setValue(u"key"_s, value);
        QVERIFY(defaults.value(u"key"_s) == value);
        QVERIFY(JsonUserDefaults(files, folder).value(u"key"_s) == value);
    }

    void valuesOfUnsupportedTypesAreAbsent()
    {
        FakeFileSystem files;
        files.setFile(path, R"({"null":null,"list":[1],"object":{"a":1}})");
        const JsonUserDefaults defaults(files, folder);
        for (const QString& key : {u"null"_s, u"list"_s, u"object"_s, u"other"_s, QString()})
            QCOMPARE(defaults.value(key), std::nullopt);
    }

    void unknownMembersArePreserved()
    {
        FakeFileSystem files;
        files.setFile(path, R"({"future":{"list":[1,2.5,null]},"key":1,"last":"x"})");
        JsonUserDefaults defaults(files, folder);
        defaults.setValue(u"key"_s, qint64(2));
        QCOMPARE(files.read(path), R"({"future":{"list":[1,2.5,null]},"key":2,"last":"x"})");
        QVERIFY(!files.exists(corruptPath));
    }

    void fileThatIsNotAnObjectIsLoggedAndBackedUp_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("logged");
        const QString prefix = u"Settings unreadable, using defaults: "_s;
        QTest::newRow("list") << QByteArray("[1]") << prefix + u"not an object"_s;
        QTest::newRow("torn") << QByteArray(R"({"key":1)") << prefix;
        QTest::newRow("empty") << QByteArray() << prefix;
        QTest::newRow("zeros") << QByteArray(64, '\0') << prefix;
        QTest::newRow("no UTF-8") << QByteArray("{\"key\":\"\xff\"}") << prefix;
        QTest::newRow("trailing") << QByteArray(R"({"key":1}})") << prefix;
        QTest::newRow("deep") << QByteArray(100'000, '[') << prefix;
    }
    void fileThatIsNotAnObjectIsLoggedAndBackedUp()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const QString, logged);
        FakeFileSystem files;
        files.setFile(path, text);

        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u'^' + logged));
        JsonUserDefaults defaults(files, folder);
        QCOMPARE(defaults.value(u"key"_s), std::nullopt);
        QCOMPARE(files.writeCount(), 0);

        defaults.setValue(u"key"_s, qint64(2));
        QCOMPARE(files.read(corruptPath), text);
        QCOMPARE(files.read(path), R"({"key":2})");

        defaults.setValue(u"key"_s, qint64(3));
        QCOMPARE(files.writeCount(corruptPath), 1);
    }

    void failedWriteIsLoggedAndTheValueKeptInMemory()
    {
        FakeFileSystem files;
        JsonUserDefaults defaults(files, folder);
        files.failWrites(u"defaults.json: No space left on device"_s);

        QTest::ignoreMessage(QtCriticalMsg,
                             "Failed to store settings: defaults.json: No space left on device");
        defaults.setValue(u"key"_s, u"kept"_s);
        QVERIFY(defaults.value(u"key"_s) == DefaultsValue(u"kept"_s));
        QVERIFY(!files.exists(path));

        files.succeed();
        defaults.setValue(u"other"_s, true);
        QCOMPARE(files.read(path), R"({"key":"kept","other":true})");
    }

    void unreadableFileIsNotOverwrittenBeforeItIsBackedUp()
    {
        FakeFileSystem files;
        files.setFile(path, "{");
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"^Settings unreadable"_s));
        JsonUserDefaults defaults(files, folder);

        files.failWrites(u"full"_s, corruptPath);
        QTest::ignoreMessage(QtCriticalMsg, "Failed to store settings: full");
        defaults.setValue(u"key"_s, true);
        QCOMPARE(files.read(path), "{");

        files.succeed();
        defaults.setValue(u"key"_s, true);
        QCOMPARE(files.read(corruptPath), "{");
        QCOMPARE(files.read(path), R"({"key":true})");
    }
};

DRIFTBOX_TEST(TestJsonUserDefaults, QCoreApplication)
#include "TestJsonUserDefaults.moc"
