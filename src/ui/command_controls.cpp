#include "ui/command_controls.h"

#include "ui/named_controls.h"

#include <QAction>
#include <QKeySequence>
#include <QShortcut>

#include <algorithm>
#include <stdexcept>

namespace pistaro {

namespace {

QKeySequence KeyOf(const std::string& key) { return QKeySequence(Shown(key), QKeySequence::PortableText); }

QList<QKeySequence> KeysOf(const Command& command) {
    QList<QKeySequence> keys;
    for (const std::string& key : {command.Key, command.OtherKey})
        if (!key.empty()) keys.append(KeyOf(key));
    return keys;
}

/// After the row's control, with its place among those of the name.
void SetName(QObject& control, const Command& command) {
    control.setObjectName(Shown(command.Control));
    if (!command.Tag.empty()) control.setProperty("Tag", Shown(command.Tag));
    if (command.Index >= 0) control.setProperty("Index", command.Index);
}

/// What a screen reader calls a button: its caption, or where that is a sign, what it does.
QString SpokenName(const Command& command) {
    const QString caption = Shown(command.Caption);
    if (std::ranges::any_of(caption, [](QChar sign) { return sign.isLetter(); })) return {};
    return Shown(command.Id).replace(0, 1, QChar(command.Id.front()).toUpper());
}

} // namespace

QString TipWithKey(const std::string& tip, const std::string& key) {
    if (key.empty()) return Shown(tip);
    return Shown(tip) + " (" + KeyOf(key).toString(QKeySequence::NativeText) + ")";
}

const Command& CommandControls::RowOf(std::string_view id) const {
    const Command* const command = session_.Commands.Find(id);
    if (command == nullptr) throw std::logic_error("no command is called " + std::string(id));
    return *command;
}

template <typename Control>
void CommandControls::Show(Control& control, const Command& command, const std::string& key) const {
    const std::string whyNot = command.WhyNot(session_);
    control.setEnabled(whyNot.empty());
    control.setToolTip(whyNot.empty() ? TipWithKey(command.Tip, key) : Shown(whyNot));
    if (command.IsOn) control.setChecked(command.IsOn(session_));
    if (command.Shows) control.setText(Shown(command.Shows(session_)));
}

QAction* CommandControls::AddEntry(QMenu& menu, std::string_view id, const std::function<void()>& instead) {
    const Command& command = RowOf(id);
    QAction* const action = menu.addAction(Shown(command.Caption));
    SetName(*action, command);
    action->setShortcuts(KeysOf(command));
    action->setCheckable(command.IsOn != nullptr);
    const auto run = [this, &command] { session_.TryRun(command); };
    QObject::connect(action, &QAction::triggered, action, instead ? instead : std::function<void()>(run));
    refreshes_.emplace_back([this, action, &command] { Show(*action, command, ""); }); // the menu shows the key
    return action;
}

QAction* CommandControls::AddTransient(QMenu& menu, std::string_view id) const {
    const Command& command = RowOf(id);
    QAction* const action = menu.addAction(Shown(command.Caption));
    action->setObjectName(Shown(command.Control));
    action->setShortcut(KeyOf(command.Key));
    action->setShortcutVisibleInContextMenu(true);
    QObject::connect(action, &QAction::triggered, action, [this, &command] { session_.TryRun(command); });
    Show(*action, command, "");
    return action;
}

void CommandControls::Bind(QAbstractButton& button, std::string_view id) {
    const Command& command = RowOf(id);
    Bind(button, [&command]() -> const Command& { return command; });
}

void CommandControls::Bind(QAbstractButton& button, const std::function<const Command&()>& row) {
    const Command& command = row();
    SetName(button, command);
    button.setText(Shown(command.Caption));
    if (button.accessibleName().isEmpty()) button.setAccessibleName(SpokenName(command));
    button.setCheckable(command.IsOn != nullptr);
    const auto run = [this, row] { session_.TryRun(row()); };
    QObject::connect(&button, &QAbstractButton::clicked, &button, run);
    // A shortcut of its own, because that of a button waits for a key that is held down to come up again.
    for (const QKeySequence& key : KeysOf(command))
        QObject::connect(new QShortcut(key, &button), &QShortcut::activated, &button, run);
    refreshes_.emplace_back([this, &button, row] { Show(button, row(), row().Key); });
}

void CommandControls::Refresh() {
    for (const auto& refresh : refreshes_)
        refresh();
}

} // namespace pistaro
