// Gives buttons and menu entries the captions, tips and keys of their rows of the command table, and keeps them enabled
// or disabled as the rows say.
#pragma once

#include "ui/workbench.h"

#include <QAbstractButton>
#include <QMenu>

#include <string_view>
#include <vector>

namespace pistaro {

class CommandControls {
public:
    explicit CommandControls(Workbench& workbench) : workbench_(workbench) {}

    /// A menu entry that runs a row, or does `instead` what runs it.
    QAction* AddEntry(QMenu& menu, std::string_view id, const std::function<void()>& instead = {});

    /// Makes a button run a row when it is clicked or the row's key is pressed. Names it after the row's control, with
    /// its Tag.
    void Bind(QAbstractButton& button, std::string_view id);

    /// The same for a button that stands for two rows in turn: `row` tells which one now.
    void Bind(QAbstractButton& button, const std::function<const Command&()>& row);

    /// Enables what can be done now; the tip of what cannot be done tells why.
    void Refresh();

private:
    template <typename Control>
    void Show(Control& control, const Command& command, const std::string& key) const;

    Workbench& workbench_;
    std::vector<std::function<void()>> refreshes_; ///< one a control
};

/// A tip with the key behind it.
QString TipWithKey(const std::string& tip, const std::string& key);

} // namespace pistaro
