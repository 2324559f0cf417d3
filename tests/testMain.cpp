// testMain.cpp - main() of all programs of tests: the first argument names the class to run.
#include "testMain.h"

#include <cstdio>
#include <map>
#include <string>

namespace {

std::map<std::string, testMain::Run>& tests()
{
    static std::map<std::string, testMain::Run> known;
    return known;
}

} // namespace

void testMain::add(const char* name, Run run)
{
    tests()[name] = run;
}

int main(int argc, char** argv)
{
    const auto test = argc > 1 ? tests().find(argv[1]) : tests().end();
    if (test == tests().end()) {
        std::fprintf(stderr, "Usage: %s TEST [OPTIONS OF QTTEST]\nThe tests are:\n", argv[0]);
        for (const auto& known : tests())
            std::fprintf(stderr, "    %s\n", known.first.c_str());
        return 2;
    }
    argv[1] = argv[0];
    return test->second(argc - 1, argv + 1);
}
