#include "zones/form_zone.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include "kinds/zone_kind.h"
#include "widgets/qt_text.h"
#include "widgets/vocab_controls.h"
#include "zones/format/zone_reset_file.h"
#include "zones/zone_lines.h"
#include "zones/zone_warnings.h"

namespace marl {

namespace {

// The argument of `command` a field stands for, 0 for none (the comment
// line's field stands for the whole line).
int argOf(const ArgField& def, char command) {
    for (const char* take = def.takes; take[0] && take[1]; take += 2)
        if (take[0] == command)
            return take[1] - '0';
    return -1;
}

std::int32_t& arg(ZoneCommand& command, int which) {
    return which == 1 ? command.Arg1 : which == 2 ? command.Arg2 : command.Arg3;
}

bool sameCommand(const ZoneCommand& a, const ZoneCommand& b) {
    return a.Command == b.Command && a.IfFlag == b.IfFlag && a.Arg1 == b.Arg1 && a.Arg2 == b.Arg2 &&
           a.Arg3 == b.Arg3 && a.Comment == b.Comment;
}

// How many messages of a kind the builder is shown at once.
constexpr std::size_t kShownProblems = 6;

QString listed(const std::vector<ZoneProblem>& problems) {
    QStringList lines;
    for (std::size_t i = 0; i < problems.size() && i < kShownProblems; ++i)
        lines << QStringLiteral("Line %1: %2")
                     .arg(problems[i].line)
                     .arg(fromBytes(problems[i].problem));
    if (problems.size() > kShownProblems)
        lines << QStringLiteral("and %1 more.").arg(problems.size() - kShownProblems);
    return lines.join('\n');
}

} // namespace

FormZone::FormZone(EditorHost& host)
    : EditorWindow(host, std::make_unique<ZoneDocument>(), ZoneKind::info.editor) {
    buildLayout();
    connectFields();
}

// ---- A file new or read ------------------------------------------------------

void FormZone::showNewFile(std::int32_t) {
    showOpenedFile();
}

// The names of the file's world, read in the background: the lines show
// VNums alone until it is loaded.
void FormZone::worldOpened() {
    connect(worldNames().get(), &WorldNames::ready, this, &FormZone::refreshLines,
            Qt::UniqueConnection);
    for (ArgRow& row : rows_)
        if (auto* label = qobject_cast<VNumNameLabel*>(row.name))
            label->setNames(worldNames());
    refreshLines();
}

void FormZone::showOpenedFile() {
    setWindowTitle(QStringLiteral("Zone Editor - %1").arg(fileName()));
    syncFolder();
    states_.assign(zone().Commands.size(), LineState{});
    headerMissing_ = {};
    showHeader();
    fillList();
    select(zone().Commands.empty() ? -1 : 0);
    listCommands_->setFocus();
}

void FormZone::showHeader() {
    showing_ = true;
    const ZoneRecord& z = zone();
    // The zone is the file name's; a header that says otherwise is kept.
    labelZone_->setText(
        z.Number == zoneNumber()
            ? QStringLiteral("Zone %1").arg(z.Number)
            : QStringLiteral("Zone %1 (its header says #%2)").arg(zoneNumber()).arg(z.Number));
    textName_->setText(fromBytes(z.Name));
    textBottom_->setText(z.NoBottom ? QString() : QString::number(z.Bottom));
    textBottom_->setEnabled(!z.NoBottom);
    labelOlder_->setVisible(z.NoBottom);
    textTop_->setText(QString::number(z.Top));
    textLifespan_->setText(QString::number(z.Lifespan));
    optionsResetMode_->setNumber(z.ResetMode);
    showing_ = false;
}

// ---- The list ----------------------------------------------------------------

void FormZone::fillList() {
    listCommands_->clear();
    const NameLookup names = [this](WorldKind kind, std::int32_t vnum) {
        return worldNames()->name(kind, vnum);
    };
    const auto missing = [this](std::size_t line, int arg) {
        return line < states_.size() && states_[line].missing[std::size_t(arg)];
    };
    const bool loaded = worldNames() && worldNames()->isReady();
    const std::vector<std::string> words =
        zoneLines(zone(), loaded ? names : NameLookup{}, missing);
    for (std::size_t i = 0; i < words.size(); ++i) {
        auto* item = new QListWidgetItem(fromBytes(words[i]), listCommands_);
        // Comment lines stand apart from the commands.
        if (zone().Commands[i].Command == kComment)
            item->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
    }
}

void FormZone::refreshLines() {
    const NameLookup names = [this](WorldKind kind, std::int32_t vnum) {
        return worldNames()->name(kind, vnum);
    };
    const auto missing = [this](std::size_t line, int arg) {
        return line < states_.size() && states_[line].missing[std::size_t(arg)];
    };
    const std::vector<std::string> words =
        zoneLines(zone(), worldNames() && worldNames()->isReady() ? names : NameLookup{}, missing);
    if (int(words.size()) != listCommands_->count()) {
        fillList();
        return;
    }
    for (std::size_t i = 0; i < words.size(); ++i)
        if (QListWidgetItem* item = listCommands_->item(int(i));
            item->text() != fromBytes(words[i]))
            item->setText(fromBytes(words[i]));
}

void FormZone::select(int line) {
    current_ = line;
    if (line >= 0 && listCommands_->currentRow() != line)
        listCommands_->setCurrentRow(line);
    const int count = int(zone().Commands.size());
    buttonDelete_->setEnabled(line >= 0);
    buttonMoveUp_->setEnabled(line > 0);
    buttonMoveDown_->setEnabled(line >= 0 && line + 1 < count);
    buttonClearAll_->setEnabled(count > 0);
    showCommand();
}

// ---- The command selected ----------------------------------------------------

void FormZone::showCommand() {
    showing_ = true;
    frameCommand_->setEnabled(current_ >= 0);
    const ZoneCommand shown =
        current_ >= 0 ? zone().Commands[std::size_t(current_)] : ZoneCommand{};
    const LineState state = current_ >= 0 ? states_[std::size_t(current_)] : LineState{};
    optionsCommand_->setNumber(current_ >= 0 ? shown.Command : -1);
    checkIfFlag_->setChecked(shown.IfFlag != 0);
    checkIfFlag_->setVisible(shown.Command != kComment);
    for (const ArgRow& row : rows_) {
        const int which = argOf(*row.def, shown.Command);
        for (QWidget* part : {static_cast<QWidget*>(row.label), row.field,
                              static_cast<QWidget*>(row.name), static_cast<QWidget*>(row.pick)})
            if (part)
                part->setVisible(current_ >= 0 && which >= 0);
        if (which < 0)
            continue;
        ZoneCommand copy = shown;
        const std::int32_t value = which > 0 ? arg(copy, which) : 0;
        if (auto* edit = qobject_cast<NumericField*>(row.field))
            edit->setText(state.missing[std::size_t(which)] ? QString() : QString::number(value));
        else if (auto* combo = qobject_cast<QComboBox*>(row.field))
            combo->setCurrentIndex(value >= 0 && value < combo->count() ? value : -1);
        else if (auto* group = qobject_cast<OptionGroup*>(row.field))
            group->setNumber(value);
        else if (auto* text = qobject_cast<QLineEdit*>(row.field))
            text->setText(fromBytes(shown.Comment));
    }
    showing_ = false;
}

void FormZone::connectFields() {
    connect(listCommands_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row != current_ && row >= 0)
            select(row);
    });
    for (QLineEdit* edit :
         {textName_, static_cast<QLineEdit*>(textBottom_), static_cast<QLineEdit*>(textTop_),
          static_cast<QLineEdit*>(textLifespan_)})
        connect(edit, &QLineEdit::textEdited, this, &FormZone::applyHeader);
    connect(optionsResetMode_, &OptionGroup::picked, this, &FormZone::applyHeader);
    connect(optionsCommand_, &OptionGroup::picked, this, &FormZone::applyKind);
    connect(checkIfFlag_, &QCheckBox::toggled, this, [this](bool on) {
        if (showing_ || current_ < 0)
            return;
        ZoneCommand& command = zoneDocument().zone().Commands[std::size_t(current_)];
        const ZoneCommand before = command;
        command.IfFlag = on ? 1 : 0;
        commandChanged(command, before);
    });
    for (const ArgRow& row : rows_) {
        if (auto* combo = qobject_cast<QComboBox*>(row.field))
            connect(combo, &QComboBox::currentIndexChanged, this, [this, row] { applyField(row); });
        else if (auto* group = qobject_cast<OptionGroup*>(row.field))
            connect(group, &OptionGroup::picked, this, [this, row] { applyField(row); });
        else if (auto* edit = qobject_cast<QLineEdit*>(row.field))
            connect(edit, &QLineEdit::textChanged, this, [this, row] { applyField(row); });
        if (row.pick)
            connect(row.pick, &QPushButton::clicked, this, [this, row] { pick(row); });
    }
    connect(buttonAdd_, &QPushButton::clicked, this, &FormZone::onAdd);
    connect(buttonInsert_, &QPushButton::clicked, this, &FormZone::onInsert);
    connect(buttonDelete_, &QPushButton::clicked, this, &FormZone::onDelete);
    connect(buttonMoveUp_, &QPushButton::clicked, this, [this] { onMove(-1); });
    connect(buttonMoveDown_, &QPushButton::clicked, this, [this] { onMove(1); });
    connect(buttonClearAll_, &QPushButton::clicked, this, &FormZone::onClearAll);
    connect(buttonSave_, &QPushButton::clicked, this, &FormZone::onSave);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, [this] {
        if (buttonSave_->isEnabled())
            onSave();
    });
}

void FormZone::applyHeader() {
    if (showing_)
        return;
    ZoneRecord& z = zoneDocument().zone();
    const ZoneRecord before = z;
    z.Name = toBytes(textName_->text());
    const std::array<std::pair<NumericField*, std::int32_t*>, 3> numbers{
        {{textBottom_, &z.Bottom}, {textTop_, &z.Top}, {textLifespan_, &z.Lifespan}}};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i == 0 && z.NoBottom)
            continue;
        const std::optional<std::int32_t> value = fieldNumber(numbers[i].first);
        headerMissing_[i] = !value;
        if (value)
            *numbers[i].second = *value;
    }
    z.ResetMode = optionsResetMode_->number();
    if (z.Name != before.Name || z.Bottom != before.Bottom || z.Top != before.Top ||
        z.Lifespan != before.Lifespan || z.ResetMode != before.ResetMode)
        z.Source.clear();
    HasChanged();
}

void FormZone::applyField(const ArgRow& row) {
    if (showing_ || current_ < 0)
        return;
    ZoneCommand& command = zoneDocument().zone().Commands[std::size_t(current_)];
    const ZoneCommand before = command;
    const int which = argOf(*row.def, command.Command);
    if (which < 0)
        return;
    LineState& state = states_[std::size_t(current_)];
    if (auto* edit = qobject_cast<NumericField*>(row.field)) {
        const std::optional<std::int32_t> value = fieldNumber(edit);
        state.missing[std::size_t(which)] = !value;
        if (value)
            arg(command, which) = *value;
    } else if (auto* combo = qobject_cast<QComboBox*>(row.field)) {
        if (combo->currentIndex() >= 0)
            arg(command, which) = combo->currentIndex();
    } else if (auto* group = qobject_cast<OptionGroup*>(row.field)) {
        arg(command, which) = group->number();
    } else if (auto* text = qobject_cast<QLineEdit*>(row.field)) {
        command.Comment = toBytes(text->text());
    }
    commandChanged(command, before);
}

void FormZone::applyKind(int letter) {
    if (showing_ || current_ < 0)
        return;
    ZoneCommand& command = zoneDocument().zone().Commands[std::size_t(current_)];
    const ZoneCommand before = command;
    LineState& state = states_[std::size_t(current_)];
    if (letter == kComment || before.Command == kComment) {
        // A command becomes a comment line with its words, and a comment
        // line a command whose numbers are still to be typed.
        command = ZoneCommand{};
        command.Command = char(letter);
        command.Comment = letter == kComment
                              ? "* " + toBytes(listCommands_->item(current_)->text().trimmed())
                              : "";
        state.missing = {false, letter != kComment, letter != kComment, letter != kComment};
    }
    command.Command = char(letter);
    if (state.fresh && letter != kComment) // as stock files have them
        command.IfFlag = letter == 'G' || letter == 'E' || letter == 'P' ? 1 : 0;
    commandChanged(command, before);
    showCommand();
}

// A command the builder changed is written field by field, its trailing
// comment kept; the one the editor made is named after its record.
void FormZone::commandChanged(ZoneCommand& command, const ZoneCommand& before) {
    const LineState& state = states_[std::size_t(current_)];
    if (state.fresh && command.Command != kComment) {
        const auto [kind, vnum] = namedRecord(command);
        const std::optional<std::string> name = worldNames() ? worldNames()->name(kind, vnum) : std::nullopt;
        command.Comment = name ? "  " + *name : std::string();
    }
    if (sameCommand(command, before))
        return;
    command.Source.clear();
    refreshLines();
    HasChanged();
}

void FormZone::pick(const ArgRow& row) {
    if (!worldNames() || current_ < 0)
        return;
    auto* edit = static_cast<NumericField*>(row.field);
    if (const std::optional<std::int32_t> vnum =
            pickRecord(this, *worldNames(), row.def->record, fieldNumber(edit).value_or(0))) {
        edit->setText(QString::number(*vnum));
        applyField(row);
    }
}

// ---- Commands ------------------------------------------------------------------

void FormZone::insertAt(int at) {
    ZoneCommand command;
    command.Command = 'M';
    auto& commands = zoneDocument().zone().Commands;
    commands.insert(commands.begin() + at, command);
    LineState state;
    state.fresh = true;
    state.missing = {false, true, true, true};
    states_.insert(states_.begin() + at, state);
    fillList();
    select(at);
    HasChanged();
    rows_.front().field->setFocus();
}

void FormZone::onDelete() {
    if (current_ < 0 ||
        !host().prompts().ask(words(text().deleteLine), QStringLiteral("Confirm Delete")))
        return;
    auto& commands = zoneDocument().zone().Commands;
    commands.erase(commands.begin() + current_);
    states_.erase(states_.begin() + current_);
    const int next = std::min(current_, int(commands.size()) - 1);
    fillList();
    select(next);
    HasChanged();
}

// A line moved keeps its bytes.
void FormZone::onMove(int by) {
    auto& commands = zoneDocument().zone().Commands;
    const int to = current_ + by;
    if (current_ < 0 || to < 0 || to >= int(commands.size()))
        return;
    std::swap(commands[std::size_t(current_)], commands[std::size_t(to)]);
    std::swap(states_[std::size_t(current_)], states_[std::size_t(to)]);
    refreshLines();
    select(to);
    HasChanged();
}

void FormZone::onClearAll() {
    if (zone().Commands.empty() ||
        !host().prompts().ask(QStringLiteral("Really Delete Every Command?"),
                              QStringLiteral("Confirm Clear All")))
        return;
    zoneDocument().zone().Commands.clear();
    states_.clear();
    fillList();
    select(-1);
    HasChanged();
}

// While Save waits for the world, the window stays.
void FormZone::closeEvent(QCloseEvent* event) {
    if (waiting_)
        event->ignore();
    else
        EditorWindow::closeEvent(event);
}

// ---- Save ------------------------------------------------------------------------

bool FormZone::refused() {
    zoneDocument().placeLines();
    const ZoneRecord& z = zone();
    std::vector<ZoneProblem> problems;
    static constexpr const char* kHeaderFields[] = {"the bottom VNum", "the top VNum",
                                                    "the lifespan"};
    for (std::size_t i = 0; i < headerMissing_.size(); ++i)
        if (headerMissing_[i])
            problems.push_back({z.numbersLine, std::string(kHeaderFields[i]) + " is not a number"});
    int line = z.firstCommandLine;
    for (std::size_t i = 0; i < z.Commands.size(); ++i, ++line) {
        const ZoneCommand& command = z.Commands[i];
        if (command.Command == kComment && !command.Comment.empty() &&
            command.Comment.front() != '*')
            problems.push_back({line, "a comment line must begin with \"*\""});
        for (const ArgField& def : kArgFields) {
            const int which = argOf(def, command.Command);
            const bool typed = def.kind == ArgKind::Record || def.kind == ArgKind::Number;
            if (typed && which > 0 && states_[i].missing[std::size_t(which)])
                problems.push_back(
                    {line, std::string(1, command.Command) + ": the " +
                               toBytes(QString::fromLatin1(def.caption).chopped(1).toLower()) +
                               " is missing or not a number"});
        }
    }
    for (ZoneProblem& problem : checkZone(z))
        problems.push_back(std::move(problem));
    if (problems.empty())
        return false;
    std::stable_sort(problems.begin(), problems.end(),
                     [](const ZoneProblem& a, const ZoneProblem& b) { return a.line < b.line; });
    host().prompts().tell(
        QStringLiteral("The server would refuse this file:\n%1\n\nCorrect it, then Save.")
            .arg(listed(problems)),
        words(text().notSavedTitle));
    if (const int at = problems.front().line - z.firstCommandLine;
        at >= 0 && at < int(z.Commands.size()))
        select(at);
    return true;
}

bool FormZone::warnedAndAsked() {
    if (!worldNames()->hasWorld()) {
        // The world is still loading: its names are what the warnings need.
        // The window takes no input meanwhile.
        QEventLoop wait;
        connect(worldNames().get(), &WorldNames::ready, &wait, &QEventLoop::quit);
        QTimer::singleShot(10000, &wait, &QEventLoop::quit);
        setEnabled(false);
        waiting_ = true;
        wait.exec();
        waiting_ = false;
        setEnabled(true);
    }
    const World* world = worldNames()->world();
    if (!world)
        return true;
    const std::vector<ZoneProblem> warnings = zoneWarnings(
        zone(), [this](WorldKind kind, std::int32_t vnum) { return worldNames()->name(kind, vnum); },
        *world);
    if (warnings.empty())
        return true;
    return host().prompts().ask(
        QStringLiteral("The server will load this file, but it will log what it cannot do:\n%1\n\n"
                       "Save anyway?")
            .arg(listed(warnings)),
        QStringLiteral("Save Zone File"));
}

void FormZone::onSave() {
    if (refused() || !warnedAndAsked())
        return;
    std::string error;
    const int shown = current_;
    const SaveResult result = zoneDocument().save(error);
    tellFailure(result, words(text().notSavedTitle), error);
    if (result == SaveResult::WriteFailed)
        return;
    states_.assign(zone().Commands.size(), LineState{});
    headerMissing_ = {};
    // The file read back holds what the window showed: only lines whose
    // words differ are set again.
    filling([&] {
        showHeader();
        refreshLines();
        select(std::min(shown, int(zone().Commands.size()) - 1));
    });
    buttonSave_->setEnabled(false);
}

} // namespace marl
