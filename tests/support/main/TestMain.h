#pragma once

#include <QtTest/QTest>

#include <type_traits>

namespace driftbox {

/// The function that runs a test class, with the arguments of Qt Test.
using TestMain = int (*)(int argc, char** argv);

/// Registers a test class with its executable, which is started as
/// `<executable> <class> [arguments of Qt Test]`. Must have static storage duration.
class TestRegistration
{
public:
    TestRegistration(const char* name, TestMain main);
};

/// Runs a test class under an application object of the given kind.
template <typename TestClass, typename Application>
int runTest(int argc, char** argv)
{
    if constexpr (!std::is_same_v<Application, QCoreApplication>)
        QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    const Application application(argc, argv);
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace driftbox

/// Registers a test class with its own main function.
#define DRIFTBOX_TEST_MAIN(TestClass, mainFunction)                                                \
    static const driftbox::TestRegistration registration##TestClass(#TestClass, mainFunction);

/// Registers a test class that needs only an application object:
/// QCoreApplication, QGuiApplication or QApplication.
#define DRIFTBOX_TEST(TestClass, Application)                                                      \
    DRIFTBOX_TEST_MAIN(TestClass, (driftbox::runTest<TestClass, Application>))
