// The one main of every test program: the classes its folder registered, one
// named by the first argument or all of them in turn.

#include "test_main.h"

#include <QApplication>
#include <map>
#include <string>

namespace marl::test {

static std::map<std::string, TestRunner>& registry() {
    static std::map<std::string, TestRunner> classes;
    return classes;
}

bool registerTestClass(const char* file, TestRunner run) {
    std::string name = file;
    name = name.substr(name.find_last_of("/\\") + 1);
    name = name.substr(0, name.rfind('.'));
    registry()[name] = std::move(run);
    return true;
}

}  // namespace marl::test

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true); // as QTEST_MAIN sets it
    auto& classes = marl::test::registry();
    if (argc > 1) {
        const auto one = classes.find(argv[1]);
        if (one != classes.end()) {
            argv[1] = argv[0];
            return one->second(argc - 1, argv + 1);
        }
    }
    int failed = 0;
    for (auto& [name, run] : classes)
        failed += run(argc, argv) != 0 ? 1 : 0;
    return failed;
}
