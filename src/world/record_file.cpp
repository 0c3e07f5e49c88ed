#include "world/record_file.h"

namespace marl {

void refuseCrOnlyLineEnds(std::string_view bytes) {
    if (bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos)
        throw FormatError::refused(1, "the line ends are not understood: lines end in CR alone "
                                      "(an old Mac file); save it with LF or CR LF line ends");
}

void readExtraDesc(TextReader& in, ExtraDescList& list, int& used, std::string_view owner) {
    if (used == kExtraDescSlots)
        throw FormatError(in.lastLineNumber(),
                          "at most 128 extra descriptions in " + std::string(owner));
    ExtraDesc& extra = list[static_cast<std::size_t>(used++)];
    extra.Keywords = in.readTildeString("the extra description keywords ending in \"~\"");
    extra.Desc = in.readTildeText("the extra description ending in \"~\"");
}

void writeExtraDescs(TextWriter& out, const ExtraDescList& list) {
    for (const ExtraDesc& extra : list) {
        if (extra.Keywords.empty())
            return;
        out.line("E");
        out.tildeString(extra.Keywords);
        out.tildeText(extra.Desc);
    }
}

} // namespace marl
