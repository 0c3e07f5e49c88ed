#include "objects/format/object_checks.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "world/vocabulary.h"

namespace marl {

namespace {

constexpr int kScroll = 2, kWand = 3, kStaff = 4, kPotion = 10, kDrinkCon = 17, kFountain = 23;
// The highest level a character reaches.
constexpr int kTopLevel = 34;
// The server's numbers for spells (1 up to 130), skills (up to 200), and
// what it numbers at all (up to 299).
constexpr int kMaxSpells = 130, kMaxSkills = 200, kTopSpellNumber = 299;

// The drinks the server names, for the last alias of a drink container.
constexpr std::array<std::string_view, 14> kDrinkNames = {
    "water", "beer",  "wine", "ale", "whisky", "lemonade", "firebreather",
    "local", "juice", "milk", "tea", "coffee", "blood",    "salt"};

// The spells the server has: a scroll's, potion's, wand's or staff's spell
// must be one of them.
bool serverHasSpell(int number) {
    return (number >= 1 && number <= 40) || (number >= 42 && number <= 48) || number == 50 ||
           number == 51 || (number >= 201 && number <= 206);
}

std::string num(std::int64_t value) {
    return std::to_string(value);
}

// `server`: the words of the line the server logs.
void logged(Findings& found, std::string what, std::string_view server,
            Severity severity = Severity::OnlyLogged) {
    found.push_back({severity, std::move(what), std::string(server)});
}

void checkLevel(Findings& found, std::int32_t level) {
    if (level < 0 || level > kTopLevel)
        logged(found, "level " + num(level) + " is outside 0 to " + num(kTopLevel),
               "out of range level");
}

void checkSpell(Findings& found, std::int32_t spell) {
    if (spell == -1 || serverHasSpell(spell))
        return;
    const std::string what = "spell " + num(spell) + " is not a spell the server has (-1 for none)";
    // The numbers past the spells and skills it could have are logged on any
    // boot; an unnamed one only on a boot that runs the game, whose spell
    // names the syntax check does not load.
    if (spell < 0 || spell > kTopSpellNumber || (spell > kMaxSpells && spell <= kMaxSkills))
        logged(found, what, "out of range spell");
    else
        logged(found, what, "uses '!UNUSED!' spell", Severity::LoggedInGame);
}

std::string_view lastWord(std::string_view alias) {
    const std::size_t space = alias.rfind(' ');
    return space == std::string_view::npos ? alias : alias.substr(space + 1);
}

} // namespace

void checkAffectCount(Findings& found, const ObjectRecord& object) {
    const std::size_t count = object.Affects.count();
    if (count > static_cast<std::size_t>(kServerAffects))
        found.push_back({Severity::RefusesBoot, num(static_cast<std::int64_t>(count)) +
                                                    " affects; the server takes at most " +
                                                    num(kServerAffects)});
}

void checkObjectTexts(Findings& found, const ObjectRecord& object, LineEnd lineEnd) {
    checkText(found, "alias list", object.Alias, TextForm::String, lineEnd);
    checkText(found, "short description", object.SDesc, TextForm::String, lineEnd);
    checkText(found, "long description", object.LDesc, TextForm::String, lineEnd);
    checkText(found, "action description", object.ADesc, TextForm::String, lineEnd);
    checkExtraDescTexts(found, object.ExtraDescs, lineEnd);
}

void checkWeightAndRent(Findings& found, const ObjectRecord& object) {
    std::int64_t weight = object.Weight;
    if ((object.OType == kDrinkCon || object.OType == kFountain) && weight < object.Values[1])
        weight = std::int64_t{object.Values[1]} + 5;
    if (weight < 0)
        logged(found, "negative weight (" + num(weight) + ")", "has negative weight");
    if (object.RPD < 0)
        logged(found, "negative rent per day (" + num(object.RPD) + ")", "has negative cost/day");
}

void checkFlagBits(Findings& found, const ObjectRecord& object) {
    const auto beyond = [&](std::string_view text, std::size_t named, const char* what,
                            std::string_view server) {
        if (named < 32 && (flagBits(text) >> named) != 0)
            logged(found,
                   std::string(what) + " flags beyond the " + num(std::int64_t(named)) +
                       " the server names (" + std::string(text) + ")",
                   server);
    };
    beyond(object.EBitV, kEffectFlagCount, "effect", "unknown object extra flag");
    beyond(object.WBitV, kWearFlagCount, "wear", "unknown object wear flag");
}

void checkDrinkAlias(Findings& found, const ObjectRecord& object) {
    if (object.OType != kDrinkCon)
        return;
    std::string last(lastWord(object.Alias));
    std::transform(last.begin(), last.end(), last.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    });
    if (std::find(kDrinkNames.begin(), kDrinkNames.end(), last) == kDrinkNames.end())
        logged(found, "the last alias of a drink container is not a drink (\"" + last + "\")",
               "doesn't have drink type as last alias");
}

void checkDrinkContents(Findings& found, const ObjectRecord& object) {
    if ((object.OType == kDrinkCon || object.OType == kFountain) &&
        object.Values[1] > object.Values[0])
        logged(found,
               "holds " + num(object.Values[1]) + " while its capacity is " + num(object.Values[0]),
               "more than maximum");
}

void checkMagicValues(Findings& found, const ObjectRecord& object) {
    if (object.OType == kScroll || object.OType == kPotion) {
        checkLevel(found, object.Values[0]);
        for (int v = 1; v <= 3; ++v)
            checkSpell(found, object.Values[static_cast<std::size_t>(v)]);
    } else if (object.OType == kWand || object.OType == kStaff) {
        checkLevel(found, object.Values[0]);
        checkSpell(found, object.Values[3]);
    }
}

void checkCharges(Findings& found, const ObjectRecord& object) {
    if ((object.OType == kWand || object.OType == kStaff) && object.Values[2] > object.Values[1])
        logged(found,
               num(object.Values[2]) + " charges left while the maximum is " +
                   num(object.Values[1]),
               "more charges");
}

Findings loggedObjectProblems(const ObjectRecord& object) {
    Findings found;
    checkWeightAndRent(found, object);
    checkFlagBits(found, object);
    checkDrinkAlias(found, object);
    checkDrinkContents(found, object);
    checkMagicValues(found, object);
    checkCharges(found, object);
    return found;
}

Findings objectProblems(const ObjectRecord& object, LineEnd lineEnd) {
    Findings found;
    checkAffectCount(found, object);
    checkObjectTexts(found, object, lineEnd);
    for (Finding& finding : loggedObjectProblems(object))
        found.push_back(std::move(finding));
    return found;
}

} // namespace marl
