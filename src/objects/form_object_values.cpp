#include "objects/form_object_values.h"

#include "objects/object_values.h"

namespace marl {

// Placeholder until the values dialog lands: only its names and title.
FormObjectValues::FormObjectValues(DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(kObjectValuesDialog)) {
    setObjectName(QString::fromLatin1(kObjectValuesDialog.form));
    setWindowTitle(QString::fromLatin1(kObjectValuesDialog.title));
}

void FormObjectValues::SetupForm(int, int) {}
void FormObjectValues::ClearAll() {}

} // namespace marl
