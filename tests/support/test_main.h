#pragma once
// Test classes register themselves under their file's name, and each test
// folder builds into one program that runs them: `tests_rooms form_room_test`
// runs one class, `tests_rooms` all of them.  Fewer programs link faster.

#include <QtTest>
#include <functional>

namespace marl::test {

using TestRunner = std::function<int(int argc, char** argv)>;

// `file` is the test's __FILE__; its name without the extension is its key.
bool registerTestClass(const char* file, TestRunner run);

}  // namespace marl::test

#define MARL_TEST_MAIN(TestClass)                                                        \
    static const bool marlTestRegistered = ::marl::test::registerTestClass(              \
        __FILE__, [](int argc, char** argv) {                                            \
            TestClass test;                                                              \
            return QTest::qExec(&test, argc, argv);                                      \
        });
