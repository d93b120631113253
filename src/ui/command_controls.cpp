// Rows of the command table as controls.
#include "ui/command_controls.h"

#include "ui/named_controls.h"

#include <QAction>
#include <QKeySequence>
#include <QShortcut>

#include <stdexcept>

namespace pistaro {

namespace {

QKeySequence KeyOf(const std::string& key) { return QKeySequence(Shown(key), QKeySequence::PortableText); }

const Command& RowOf(std::string_view id) {
    const Command* const command = FindCommand(id);
    if (command == nullptr) throw std::logic_error("no command is called " + std::string(id));
    return *command;
}

} // namespace

QString TipWithKey(const std::string& tip, const std::string& key) {
    if (key.empty()) return Shown(tip);
    return Shown(tip) + " (" + KeyOf(key).toString(QKeySequence::NativeText) + ")";
}

template <typename Control>
void CommandControls::Show(Control& control, const Command& command, const std::string& key) const {
    const std::string whyNot = command.WhyNot(workbench_.Design);
    control.setEnabled(whyNot.empty());
    control.setToolTip(whyNot.empty() ? TipWithKey(command.Tip, key) : Shown(whyNot));
}

QAction* CommandControls::AddEntry(QMenu& menu, std::string_view id, const std::function<void()>& instead) {
    const Command& command = RowOf(id);
    QAction* const action = menu.addAction(Shown(command.Caption));
    action->setObjectName(Shown(command.Control));
    action->setShortcut(KeyOf(command.Key));
    const auto run = [this, &command] { workbench_.Run(command); };
    QObject::connect(action, &QAction::triggered, action, instead ? instead : std::function<void()>(run));
    refreshes_.emplace_back([this, action, &command] { Show(*action, command, ""); }); // the menu shows the key
    return action;
}

void CommandControls::Bind(QAbstractButton& button, std::string_view id) {
    const Command& command = RowOf(id);
    Bind(button, [&command]() -> const Command& { return command; });
}

void CommandControls::Bind(QAbstractButton& button, const std::function<const Command&()>& row) {
    const Command& command = row();
    button.setObjectName(Shown(command.Control));
    if (!command.Tag.empty()) button.setProperty("Tag", Shown(command.Tag));
    button.setText(Shown(command.Caption));
    const auto run = [this, row] { workbench_.Run(row()); };
    QObject::connect(&button, &QAbstractButton::clicked, &button, run);
    // A shortcut of its own, because that of a button waits for a key that is held down to come up again.
    if (!command.Key.empty()) {
        auto* const key = new QShortcut(KeyOf(command.Key), &button);
        QObject::connect(key, &QShortcut::activated, &button, run);
    }
    refreshes_.emplace_back([this, &button, row] { Show(button, row(), row().Key); });
}

void CommandControls::Refresh() {
    for (const auto& refresh : refreshes_)
        refresh();
}

} // namespace pistaro
