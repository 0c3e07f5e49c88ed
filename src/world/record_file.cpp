#include "world/record_file.h"

#include <cstring>

namespace marl {

std::size_t headerLinesAtMost(std::string_view bytes) {
    std::size_t count = !bytes.empty() && bytes.front() == '#' ? 1 : 0;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (const void* lf = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
        at = static_cast<const char*>(lf) + 1;
        if (at < end && *at == '#')
            ++count;
    }
    return count;
}

void readExtraDesc(TextReader& in, ExtraDescList& list, std::string_view owner) {
    if (list.count() == ExtraDescList::size())
        throw FormatError(in.lastLineNumber(),
                          "at most 128 extra descriptions in " + std::string(owner));
    ExtraDesc& extra = list.append();
    extra.Keywords = in.readTildeString("the extra description keywords ending in \"~\"");
    extra.Desc = in.readTildeText("the extra description ending in \"~\"");
}

void writeExtraDescs(TextWriter& out, const ExtraDescList& list) {
    for (std::size_t slot = 0; slot < list.count(); ++slot) {
        const ExtraDesc& extra = list[slot];
        out.line("E");
        out.tildeString(extra.Keywords);
        out.tildeText(extra.Desc);
    }
}

} // namespace marl
