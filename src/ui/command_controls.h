// Gives buttons and menu entries the captions, tips and keys of their rows of the command table, and keeps them as the
// rows say: enabled or disabled, on or off.
#pragma once

#include "commands/session.h"

#include <QAbstractButton>
#include <QMenu>

#include <functional>
#include <string_view>
#include <vector>

namespace pistaro {

/// A tool tip that names the key too, if there is one.
QString TipWithKey(const std::string& tip, const std::string& key);

class CommandControls {
public:
    explicit CommandControls(Session& session) : session_(session) {}

    /// A menu entry that runs a row, or does `instead` what runs it.
    QAction* AddEntry(QMenu& menu, std::string_view id, const std::function<void()>& instead = {});

    /// An entry of a menu that is opened once: as the row is when it is opened. It shows the row's key, which others
    /// listen to.
    QAction* AddTransient(QMenu& menu, std::string_view id) const;

    /// Makes a button run a row when it is clicked or the row's key is pressed. Names it after the row's control, with
    /// its Tag and its Index.
    void Bind(QAbstractButton& button, std::string_view id);

    /// The same for a button that stands for two rows in turn: `row` tells which one now.
    void Bind(QAbstractButton& button, const std::function<const Command&()>& row);

    /// Enables what can be done now; the tip of what cannot be done tells why.
    void Refresh();

private:
    const Command& RowOf(std::string_view id) const;

    template <typename Control>
    void Show(Control& control, const Command& command, const std::string& key) const;

    Session& session_;
    std::vector<std::function<void()>> refreshes_; ///< one a control
};

} // namespace pistaro
