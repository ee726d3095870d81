#include "platform/Expected.h"
#include "support/main/TestMain.h"

#include <memory>

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

Expected<std::unique_ptr<int>> numberOf(bool works)
{
    if (!works)
        return Error{u"no number"_s};
    return std::make_unique<int>(7);
}

Expected<void> attempt(bool works)
{
    if (!works)
        return Error{u"out of luck"_s};
    return {};
}

} // namespace

class TestExpected : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aValueCanBeLookedAtAndTaken()
    {
        auto number = numberOf(true);
        QVERIFY(number);
        QCOMPARE(*number->get(), 7);
        const std::unique_ptr<int> taken = std::move(*number);
        QCOMPARE(*taken, 7);
    }

    void whatFailedSaysWhy()
    {
        const auto number = numberOf(false);
        QVERIFY(!number);
        QCOMPARE(number.error().message, u"no number"_s);
    }

    void aCallWithoutAValueWorksOrSaysWhyNot()
    {
        QVERIFY(attempt(true));
        QVERIFY(!attempt(false));
        QCOMPARE(attempt(false).error().message, u"out of luck"_s);
    }
};

DRIFTBOX_TEST(TestExpected, QCoreApplication)
#include "TestExpected.moc"
