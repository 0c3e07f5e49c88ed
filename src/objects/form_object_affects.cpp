#include "objects/form_object_affects.h"

#include "objects/object_vocabulary.h"

namespace marl {

// Placeholder until the affects dialog lands: only its names and title.
FormObjectAffects::FormObjectAffects(DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(kObjectAffectsDialog)) {
    setObjectName(QString::fromLatin1(kObjectAffectsDialog.form));
    setWindowTitle(QString::fromLatin1(kObjectAffectsDialog.title));
}

void FormObjectAffects::SetupForm(int) {}
void FormObjectAffects::ClearAll() {}

} // namespace marl
