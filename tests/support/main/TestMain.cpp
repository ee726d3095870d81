#include "support/main/TestMain.h"

#include <cstdio>
#include <map>
#include <string_view>

namespace driftbox {
namespace {

std::map<std::string_view, TestMain>& registeredTests()
{
    static std::map<std::string_view, TestMain> tests;
    return tests;
}

} // namespace

TestRegistration::TestRegistration(const char* name, TestMain main)
{
    registeredTests().emplace(name, main);
}

} // namespace driftbox

int main(int argc, char** argv)
{
    const auto& tests = driftbox::registeredTests();
    const auto test = argc > 1 ? tests.find(argv[1]) : tests.end();
    if (test == tests.end()) {
        std::fprintf(stderr, "usage: %s CLASS [OPTIONS OF QT TEST]\n", argv[0]);
        for (const auto& [name, main] : tests)
            std::fprintf(stderr, "    %s\n", name.data());
        return 2;
    }
    // Remove the class name from the arguments.
    argv[1] = argv[0];
    return test->second(argc - 1, argv + 1);
}
