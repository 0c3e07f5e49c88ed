#include "objects/form_object_values.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QPushButton>

#include "editor/world_names.h"
#include "objects/form_object_container_state.h"
#include "objects/form_object_pick_list.h"
#include "objects/format/object_checks.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"

namespace marl {

// Values are shown as they stand: a number out of a field's range (a stock
// scroll casts spell 201) stays as it is unless the builder edits it.
void FormObjectValues::SetupForm(Shown<ObjectRecord> object, int type) {
    object_ = std::move(object);
    type_ = type;
    ParseValues(type);
    changed_ = false;
}

void FormObjectValues::setWorld(std::shared_ptr<WorldNames> names) {
    world_ = std::move(names);
    for (GroupControls& group : groups_)
        for (VNumNameLabel* label : group.names)
            if (label)
                label->setNames(world_);
}

void FormObjectValues::ParseValues(int type) {
    group_ = findValueGroup(type);
    shown_ = nullptr;
    if (!group_)
        return;
    shown_ = &groups_[static_cast<std::size_t>(group_ - kValueGroups.data())];
    shown_->frame->setEnabled(true);
    const ObjectRecord& object = *object_;
    QWidget* focus = nullptr;
    for (std::size_t v = 0; v < group_->values.size(); ++v) {
        if (NumericField* field = shown_->fields[v]) {
            field->setText(QString::number(object.Values[v]));
            focus = focus ? focus : field;
        }
        if (QCheckBox* box = shown_->boxes[v])
            box->setChecked(object.Values[v] != 0);
    }
    // An eternal light shows as one: Eternal checked, its -1 disabled.
    if (checkEternal_->parentWidget() == shown_->frame &&
        object.Values[kEternalValue] == kEternalDuration) {
        checkEternal_->setChecked(true);
        savedDuration_.reset();
        focus = checkEternal_;
    }
    if (focus)
        focus->setFocus();
}

// A light made eternal remembers the duration it had while the dialog is
// open, which unchecking the box brings back.
void FormObjectValues::onEternal(bool checked) {
    changed_ = true;
    NumericField* duration = textLightDuration_;
    if (checked) {
        savedDuration_ = fieldNumber(duration);
        duration->setText(QString::number(kEternalDuration));
        duration->setEnabled(false);
    } else {
        duration->setText(savedDuration_ ? QString::number(*savedDuration_) : QString());
        duration->setEnabled(true);
        duration->setFocus();
    }
}

void FormObjectValues::ClearAll() {
    if (!shown_)
        return;
    if (checkEternal_->isChecked() && checkEternal_->parentWidget() == shown_->frame)
        checkEternal_->setChecked(false);
    for (std::size_t v = 0; v < kObjectValues; ++v) {
        if (shown_->fields[v])
            shown_->fields[v]->clear();
        if (shown_->boxes[v])
            shown_->boxes[v]->setChecked(false);
    }
}

bool FormObjectValues::checkValues() {
    for (std::size_t v = 0; v < kObjectValues; ++v) {
        NumericField* field = shown_->fields[v];
        if (!field)
            continue;
        QString problem;
        if (field->text().isEmpty())
            problem = QStringLiteral("%1 Must Not Be Empty.");
        else if (!fieldNumber(field))
            problem = QStringLiteral("%1 Must Be a Number.");
        if (problem.isEmpty())
            continue;
        prompts_.tell(twoLines(problem.arg(QString::fromLatin1(group_->values[v].caption)),
                               QStringLiteral("Correct it, then Done.")),
                      notSavedTitle());
        if (field->isEnabled())
            field->setFocus();
        return false;
    }
    return true;
}

// The group's values as its table says: a field's number, a poisoned box as
// -1 or 0, and 0 for a value the group has no field for.
void FormObjectValues::SaveValues() {
    ObjectRecord& object = *object_;
    for (std::size_t v = 0; v < kObjectValues; ++v) {
        switch (group_->values[v].kind) {
        case ValueKind::Stored0:
            object.Values[v] = 0;
            break;
        case ValueKind::Field:
            object.Values[v] = fieldNumber(shown_->fields[v]).value_or(0);
            break;
        case ValueKind::Poisoned:
            object.Values[v] = shown_->boxes[v]->isChecked() ? -1 : 0;
            break;
        }
    }
}

void FormObjectValues::onDone() {
    if (changed_ && shown_) {
        if (!checkValues())
            return;
        SaveValues();
        tellOwnerStored();
        warnOfServerChecks();
    }
    finish();
}

// The server boots an object that fails its checks and logs each failure:
// the values are stored, and the builder told what the server will log.
void FormObjectValues::warnOfServerChecks() {
    ObjectRecord object = *object_;
    object.OType = static_cast<std::int16_t>(type_); // as the editor shows it
    const Findings found = loggedObjectProblems(object);
    if (found.empty())
        return;
    QString text = QStringLiteral("The server will log this object as it boots:");
    for (const Finding& finding : found)
        text += QStringLiteral("\r\n- ") + fromBytes(finding.what);
    prompts_.tell(text);
}

// A field that is empty or not a number opens its list on the list's
// default; the list writes back only a choice the builder changed.
void FormObjectValues::onPick(std::size_t value) {
    if (!shown_ || !shown_->fields[value])
        return;
    NumericField& field = *shown_->fields[value];
    const ValuePicker picker = group_->values[value].picker;
    const std::optional<std::int32_t> number = fieldNumber(&field);
    if (picker == ValuePicker::WorldObject) {
        if (!world_)
            return;
        showRecordPick(this, world_, WorldKind::Object, number.value_or(-1),
                       [this, &field](std::int32_t vnum) {
                           field.setFocus();
                           field.selectAll();
                           field.insert(QString::number(vnum));
                       });
        return;
    }
    if (picker == ValuePicker::ContainerState) {
        auto* dialog = new FormObjectContainerState(*this, prompts_, field);
        dialog->SetupForm(number.value_or(0));
        pickers_.show(dialog);
        return;
    }
    const PickListDef* list = findPickList(picker);
    if (!list)
        return;
    auto* dialog = new FormObjectPickList(*this, prompts_, *list, field);
    dialog->SetupForm(number.value_or(list->defaultNumber));
    pickers_.show(dialog);
}

// The dialog waits for its pick list as an editor waits for its dialogs.
void FormObjectValues::closeEvent(QCloseEvent* event) {
    if (pickers_.holdsClose()) {
        event->ignore();
        return;
    }
    OwnedDialog::closeEvent(event);
}

} // namespace marl
