#include "mobiles/format/mobile_checks.h"

namespace marl {

void checkMobileTexts(Findings& found, const MobileRecord& mobile, LineEnd lineEnd) {
    checkText(found, "alias list", mobile.Alias, TextForm::String, lineEnd);
    checkText(found, "short description", mobile.SDesc, TextForm::String, lineEnd);
    checkText(found, "long description", mobile.LDesc, TextForm::Text, lineEnd);
    checkText(found, "detailed description", mobile.DDesc, TextForm::Text, lineEnd);
}

} // namespace marl
