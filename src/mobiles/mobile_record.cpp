#include "mobiles/mobile_record.h"

namespace marl {

const std::array<PositionDef, 4> kPositions = {{
    {4, "optionLoadSleeping", "optionSleeping", "Sleeping"},
    {5, "optionLoadResting", "optionResting", "Resting"},
    {6, "optionLoadSitting", "optionSitting", "Sitting"},
    {8, "optionLoadStanding", "optionStanding", "Standing"},
}};

const std::array<ChoiceDef, 3> kGenders = {{
    {0, "optionNeutral", "Neutral"},
    {1, "optionMale", "Male"},
    {2, "optionFemale", "Female"},
}};

const std::array<ExtendedDef, 8> kExtendedValues = {{
    {"BareHandAttack:", &MobileRecord::BHA},
    {"Str:", &MobileRecord::Str},
    {"StrAdd:", &MobileRecord::StrAdd},
    {"Int:", &MobileRecord::Int},
    {"Wis:", &MobileRecord::Wis},
    {"Dex:", &MobileRecord::Dex},
    {"Con:", &MobileRecord::Con},
    {"Cha:", &MobileRecord::Cha},
}};

bool hasExtendedValues(const MobileRecord& mobile) {
    for (const ExtendedDef& def : kExtendedValues)
        if (mobile.*def.field != 0)
            return true;
    return false;
}

MobileTable& mobileTable() {
    static MobileTable table;
    return table;
}

void ClearMobileTable() {
    mobileTable().clear();
}

} // namespace marl
