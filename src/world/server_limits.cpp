#include "world/server_limits.h"

#include <algorithm>

namespace marl {

namespace {

// The server's line reader takes at most this many bytes of a line at once.
constexpr std::size_t kServerLinePiece = 511;

} // namespace

std::size_t serverTextLength(std::string_view value, TextForm form, LineEnd lineEnd) {
    // The bytes written, up to and including the `~`: CR LF held in the
    // value becomes the file's line end.
    const std::string_view eol = lineEnd == LineEnd::CrLf ? "\r\n" : "\n";
    std::string written;
    written.reserve(value.size() + 4);
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\r' && i + 1 < value.size() && value[i + 1] == '\n') {
            written += eol;
            ++i;
        } else {
            written += value[i];
        }
    }
    if (form == TextForm::Text && !value.empty())
        written += eol;
    written += '~';

    std::size_t length = 0;
    for (std::size_t at = 0; at < written.size();) {
        std::size_t piece = std::min(kServerLinePiece, written.size() - at);
        if (const std::size_t lf = written.find('\n', at);
            lf != std::string::npos && lf < at + piece)
            piece = lf - at + 1;
        const std::string_view read = std::string_view(written).substr(at, piece);
        if (const std::size_t tilde = read.find('~'); tilde != std::string_view::npos)
            return length + tilde;
        length += piece + 1;
        at += piece;
    }
    return length;
}

bool fitsServerText(std::string_view value, TextForm form, LineEnd lineEnd) {
    return serverTextLength(value, form, lineEnd) < kServerTextBuffer;
}

std::string textTooLongMessage() {
    return "The text would be too long for the server: it reads at most " +
           std::to_string(kServerTextBuffer - 1) +
           " bytes of a text (line ends included) and refuses to boot a zone with a longer one.";
}

void checkText(Findings& found, std::string_view field, std::string_view value, TextForm form,
               LineEnd lineEnd) {
    // Written, a text takes at most two bytes more than it holds (a line end
    // and the `~`), and the server's reading at most one more a byte.
    if (2 * (value.size() + 2) < kServerTextBuffer)
        return;
    const std::size_t length = serverTextLength(value, form, lineEnd);
    if (length >= kServerTextBuffer)
        found.push_back(
            {Severity::RefusesBoot, "the " + std::string(field) + " is " + std::to_string(length) +
                                        " bytes as the server reads it; it reads at most " +
                                        std::to_string(kServerTextBuffer - 1)});
}

void checkExtraDescTexts(Findings& found, const ExtraDescList& list, LineEnd lineEnd) {
    for (std::size_t i = 0; i < list.count(); ++i) {
        const std::string n = std::to_string(i + 1);
        checkText(found, "keywords of extra description " + n, list[i].Keywords, TextForm::String,
                  lineEnd);
        checkText(found, "extra description " + n, list[i].Desc, TextForm::Text, lineEnd);
    }
}

} // namespace marl
