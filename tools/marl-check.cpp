// marl-check: checks zone files from a terminal with the editor's own reader,
// and with --rewrite writes each one again exactly as the editor's save
// would, so that a builder can check a hand-edited zone before the server
// boots it and normalise it.

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "kinds/zone_kinds.h"
#include "world/zone.h"
#include "world/zone_file.h"

namespace fs = std::filesystem;
using namespace marl;

namespace {

constexpr const char* kUsage =
    "Usage: marl-check [--rewrite DIR] FILE...\n"
    "Checks CircleMUD zone files the way the Marl editor reads them.\n"
    "\n"
    "Each FILE is read by its extension: .wld (rooms), .mob (mobiles) or .obj\n"
    "(objects).  For a file that reads, marl-check prints \"FILE: N rooms\" (or\n"
    "mobiles, objects); for one that does not, \"FILE:LINE: expected ...\", the\n"
    "line and what the reader expected there.\n"
    "\n"
    "Options:\n"
    "  --rewrite DIR  also write each file that reads into the folder DIR, under\n"
    "                 its own name, exactly as the editor's Save would write it.\n"
    "                 The zone number comes from the file name (30.wld is zone\n"
    "                 30); a name that does not begin with a number is refused.\n"
    "                 An existing file in DIR is replaced only once the new one\n"
    "                 is completely written.\n"
    "  --help         show this text.\n"
    "\n"
    "Exit status: 0 when every file reads (and is written), 1 when any file is\n"
    "refused, 2 for a usage error.\n";

void print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

std::string plural(int count, std::string_view one, std::string_view many) {
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

// Reads one file with the reader of its kind and, when `rewrite` is set,
// writes it there.  Prints one line; returns whether all went well.
template <typename Kind>
bool checkFile(const std::string& shown, const fs::path& path, std::int32_t zone,
               const fs::path* rewrite) {
    typename Kind::Table& table = Kind::table();
    const LoadOutcome outcome = loadZoneTable(path, table, Kind::read);
    if (!outcome.ok) {
        if (outcome.line > 0)
            print(shown + ':' + std::to_string(outcome.line) + ": " + outcome.problem + '\n');
        else
            print(shown + ": cannot read the file: " + outcome.problem + '\n');
        return false;
    }
    std::string line = shown + ": " + plural(outcome.count, Kind::one, Kind::many);
    if (rewrite) {
        const fs::path target = *rewrite / path.filename();
        std::string error;
        if (!writeZoneFile(target, Kind::write(table, outcome.count, zone), error)) {
            print(line + "; cannot write " + target.string() + ": " + error + '\n');
            return false;
        }
        line += ", written to " + target.string();
    }
    print(line + '\n');
    return true;
}

bool checkOne(const std::string& shown, const fs::path* rewrite) {
    const fs::path path(shown);
    const std::string extension = path.extension().string();
    const std::optional<std::int32_t> zone = zoneFromFileName(path.filename().string());
    bool ok = false;
    const bool known = withZoneKind(extension, [&]<typename Kind>() {
        if (rewrite && !zone) {
            print(shown + ": the name does not begin with a zone number (such as 30" + extension +
                  "), so it cannot be written\n");
            return;
        }
        ok = checkFile<Kind>(shown, path, zone.value_or(0), rewrite);
    });
    if (!known)
        print(shown + ": not a zone file: the name must end in .wld, .mob or .obj\n");
    return ok;
}

int usageError(const std::string& problem) {
    std::fputs(("marl-check: " + problem + "\nTry 'marl-check --help'.\n").c_str(), stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> files;
    std::optional<fs::path> rewrite;
    bool options = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (options && arg == "--") {
            options = false;
        } else if (options && (arg == "--help" || arg == "-h")) {
            std::fputs(kUsage, stdout);
            return 0;
        } else if (options && arg == "--rewrite") {
            if (i + 1 >= argc)
                return usageError("--rewrite needs a folder");
            rewrite = fs::path(argv[++i]);
        } else if (options && arg.starts_with("--rewrite=")) {
            rewrite = fs::path(std::string(arg.substr(10)));
        } else if (options && arg.size() > 1 && arg.front() == '-') {
            return usageError("unknown option " + std::string(arg));
        } else {
            files.emplace_back(arg);
        }
    }
    if (files.empty())
        return usageError("no zone file given");
    if (rewrite) {
        std::error_code ec;
        if (rewrite->empty() || !fs::is_directory(*rewrite, ec))
            return usageError("--rewrite needs an existing folder, not '" + rewrite->string() +
                              "'");
    }

    bool allRead = true;
    for (const std::string& file : files)
        allRead = checkOne(file, rewrite ? &*rewrite : nullptr) && allRead;
    std::fflush(stdout);
    return allRead ? 0 : 1;
}
