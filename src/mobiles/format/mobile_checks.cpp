#include "mobiles/format/mobile_checks.h"

#include "world/vocabulary.h"

namespace marl {

namespace {

// The action flags the server names (bits 0 to 18) and the affect flags (0 to 21).
constexpr int kServerActionFlags = 19, kServerAffectFlags = 22;
constexpr int kReservedBit = 18; // set on a mobile only while it is taken out of the game
constexpr FlagBits kAggressive = 1u << 5;
constexpr FlagBits kAggressiveToAlignment = 7u << 8; // evil, good, neutral

void logged(Findings& found, std::string what, std::string_view server) {
    found.push_back({Severity::OnlyLogged, std::move(what), std::string(server)});
}

} // namespace

void checkMobileTexts(Findings& found, const MobileRecord& mobile, LineEnd lineEnd) {
    checkText(found, "alias list", mobile.Alias, TextForm::String, lineEnd);
    checkText(found, "short description", mobile.SDesc, TextForm::String, lineEnd);
    checkText(found, "long description", mobile.LDesc, TextForm::Text, lineEnd);
    checkText(found, "detailed description", mobile.DDesc, TextForm::Text, lineEnd);
}

void checkMobileFlags(Findings& found, const MobileRecord& mobile) {
    FlagBits action = flagBits(mobile.ActionBitV);
    if (action >> kReservedBit & 1u) {
        logged(found,
               "action flag " + std::string(1, flagLetter(kReservedBit)) +
                   " is the server's own (it clears it)",
               "has reserved bit MOB_NOTDEADYET set");
        action &= ~(1u << kReservedBit);
    }
    if (action >> kServerActionFlags != 0)
        logged(found,
               "action flags beyond the " + std::to_string(kServerActionFlags) +
                   " the server names (" + mobile.ActionBitV + ")",
               "unknown mobile flag");
    if (flagBits(mobile.AffectBitV) >> kServerAffectFlags != 0)
        logged(found,
               "affect flags beyond the " + std::to_string(kServerAffectFlags) +
                   " the server names (" + mobile.AffectBitV + ")",
               "unknown mobile affect flag");
    if ((action & kAggressive) && (action & kAggressiveToAlignment))
        logged(found, "Aggressive and aggressive to an alignment: the server ignores the alignment",
               "both Aggressive and Aggressive_to_Alignment");
}

void checkExtendedKeywords(Findings& found, const MobileRecord& mobile) {
    for (const std::string& line : mobile.ExtendedLines) {
        // The server passes over empty and `*` lines; a value too large for
        // it still sets its keyword.
        std::int16_t value = 0;
        bool tooLarge = false;
        if (line.empty() || line.front() == '*' || extendedValue(line, value, &tooLarge) ||
            tooLarge)
            continue;
        logged(found, "the extended line \"" + line + "\" sets nothing the server knows",
               "unrecognized espec keyword");
    }
}

} // namespace marl
