#include "editor/field_table.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>

#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

std::vector<QGroupBox*> makeFields(QWidget* parent, std::span<const FieldDef> defs,
                                   std::span<QLineEdit*> edits, QLineEdit* first,
                                   const std::function<bool(const FieldDef&)>& unframed) {
    // Numbers without a typing limit hold 32 bits.
    constexpr int kUnlimitedColumns = 12;
    std::vector<QGroupBox*> frames(defs.size(), nullptr);
    for (std::size_t row = 0; row < defs.size(); ++row) {
        const FieldDef& def = defs[row];
        QLineEdit* edit = nullptr;
        if (row == 0 && first) {
            edit = first;
        } else if (def.kind == FieldKind::Number) {
            edit = ui::named(new NumericField(def.rule, parent), def.control);
        } else {
            edit = ui::named(new QLineEdit(parent), def.control);
            edit->setFont(fixedFont());
            guardTildeText(edit);
            edit->setMinimumWidth(ui::widthForColumns(edit, 40));
        }
        if (def.kind == FieldKind::Number)
            edit->setFixedWidth(ui::widthForColumns(
                edit, def.rule.maxLength > 0 ? def.rule.maxLength + 2 : kUnlimitedColumns));
        edits[row] = edit;
        if (unframed && unframed(def))
            continue;
        frames[row] = ui::frame(parent, def.frame, QString::fromLatin1(def.caption));
        edit->setParent(frames[row]);
        auto* frameLayout = new QHBoxLayout(frames[row]);
        frameLayout->addWidget(edit);
        if (def.kind == FieldKind::Number)
            frameLayout->addStretch();
    }
    return frames;
}

bool fieldsFilled(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits) {
    for (std::size_t row = 0; row < defs.size(); ++row)
        if (!defs[row].mayBeEmpty && edits[row]->text().isEmpty())
            return false;
    return true;
}

bool checkFieldTable(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits,
                     Prompts& prompts, const QString& title) {
    for (std::size_t row = 0; row < defs.size(); ++row) {
        const FieldDef& def = defs[row];
        QLineEdit* edit = edits[row];
        QString problem;
        if (edit->text().isEmpty() && !def.mayBeEmpty)
            problem = QStringLiteral("%1 Must Not Be Empty.");
        else if (def.kind == FieldKind::Number && !edit->text().isEmpty() && !fieldNumber(edit))
            problem = QStringLiteral("%1 Must Be a Number.");
        if (problem.isEmpty())
            continue;
        prompts.tell(twoLines(problem.arg(QString::fromLatin1(def.caption)),
                              QStringLiteral("Correct it, then Save.")),
                     title);
        edit->setFocus();
        return false;
    }
    return true;
}

} // namespace marl
