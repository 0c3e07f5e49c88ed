#include "world/record_file.h"

namespace marl {

void refuseCrOnlyLineEnds(std::string_view bytes) {
    if (bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos)
        throw FormatError::refused(1, "the line ends are not understood: lines end in CR alone "
                                      "(an old Mac file); save it with LF or CR LF line ends");
}

void readExtraDesc(TextReader& in, ExtraDescList& list, std::string_view owner) {
    ExtraDesc beyond;
    if (list.count() == ExtraDescList::size()) {
        std::string text = "more than 128 extra descriptions in " + std::string(owner) +
                           ": kept while it is not changed; saved from the editor it keeps 128";
        if (in.notes().empty() || in.notes().back().text != text)
            in.note(in.lastLineNumber(), std::move(text));
    }
    ExtraDesc& extra = list.count() == ExtraDescList::size() ? beyond : list.append();
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
