#include "world/record_file.h"

#include <cstring>

namespace marl {

void refuseCrOnlyLineEnds(std::string_view bytes) {
    if (bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos)
        throw FormatError::refused(1, "the line ends are not understood: lines end in CR alone "
                                      "(an old Mac file); save it with LF or CR LF line ends");
}

std::size_t headerLinesAtMost(std::string_view bytes) {
    // `#` is rare in the text between headers, so the search runs over long
    // stretches at a time.
    std::size_t count = 0;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (const void* found = std::memchr(at, '#', static_cast<std::size_t>(end - at))) {
        const char* hash = static_cast<const char*>(found);
        if (hash == bytes.data() || hash[-1] == '\n')
            ++count;
        at = hash + 1;
    }
    return count;
}

void readExtraDesc(TextReader& in, ExtraDescList& list, std::string_view owner) {
    if (list.count() == ExtraDescList::size())
        throw FormatError(in.lastLineNumber(),
                          "at most 128 extra descriptions in " + std::string(owner));
    ExtraDesc& extra = list.append();
    in.readTildeString("the extra description keywords ending in \"~\"", extra.Keywords);
    in.readTildeText("the extra description ending in \"~\"", extra.Desc);
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
