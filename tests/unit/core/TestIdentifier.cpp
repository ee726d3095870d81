#include "core/Identifier.h"
#include "support/main/TestMain.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {
using Id = Identifier<struct SomethingTag>;
}

class TestIdentifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsCanonicalAndUppercase()
    {
        const QString text = Id::random().text();
        const QRegularExpression canonical(
            u"^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"_s);
        QVERIFY2(canonical.match(text).hasMatch(), qUtf8Printable(text));
    }

    void parsingIgnoresCase()
    {
        const auto upper = Id::fromText(u"0F8FAD5B-D9CB-469F-A165-70867728950E");
        const auto lower = Id::fromText(u"0f8fad5b-d9cb-469f-a165-70867728950e");
        QVERIFY(upper && lower);
        QVERIFY(*upper == *lower);
        QCOMPARE(lower->text(), u"0F8FAD5B-D9CB-469F-A165-70867728950E"_s);
        QCOMPARE(qHash(*upper), qHash(*lower));
    }

    void nilAndOtherVersionsAreAccepted()
    {
        QVERIFY(Id::fromText(u"00000000-0000-0000-0000-000000000000"));
        QVERIFY(Id::fromText(u"FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF"));
    }

    void malformedTextIsRejected_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("braces") << u"{0F8FAD5B-D9CB-469F-A165-70867728950E}"_s;
        QTest::newRow("no dashes") << u"0F8FAD5BD9CB469FA16570867728950E"_s;
        QTest::newRow("short") << u"0F8FAD5B-D9CB-469F-A165-70867728950"_s;
        QTest::newRow("long") << u"0F8FAD5B-D9CB-469F-A165-70867728950E0"_s;
        QTest::newRow("no digit") << u"0F8FAD5B-D9CB-469F-A165-70867728950G"_s;
        QTest::newRow("blank") << u"0F8FAD5B-D9CB-469F-A165-70867728950 "_s;
        QTest::newRow("dashes elsewhere") << u"0F8FAD5BD-9CB-469F-A165-70867728950E"_s;
        QTest::newRow("path") << u"../../../../../../../../etc/passwd/x"_s;
        QTest::newRow("full-width digit") << u"\uff10F8FAD5B-D9CB-469F-A165-70867728950E"_s;
    }
    void malformedTextIsRejected()
    {
        QFETCH(const QString, text);
        QVERIFY(!Id::fromText(text));
    }

    void randomIdentifiersDiffer()
    {
        QSet<Id> ids;
        for (int i = 0; i < 1000; ++i)
            ids.insert(Id::random());
        QCOMPARE(ids.size(), 1000);
    }
};

DRIFTBOX_TEST(TestIdentifier, QCoreApplication)
#include "TestIdentifier.moc"
