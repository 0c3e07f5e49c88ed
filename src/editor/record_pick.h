#pragma once
// The pick button beside a VNum field that names another record: it lists
// that kind's records of the world (pickRecord, declared with WorldNames)
// and puts the VNum chosen into the field.  It is enabled with its field.

#include <QPushButton>
#include <memory>

#include "kinds/world_model.h"

class QLineEdit;

namespace marl {

class WorldNames;

class RecordPickButton : public QPushButton {
    Q_OBJECT
public:
    // `names` may be null until the window has a file (setNames).
    RecordPickButton(QLineEdit* field, WorldKind kind, QWidget* parent);
    void setNames(std::shared_ptr<WorldNames> names) { names_ = std::move(names); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pick();

    QLineEdit* field_;
    WorldKind kind_;
    std::shared_ptr<WorldNames> names_;
};

} // namespace marl
