// A user who presses anything at random: mouse and keys, on every window, dialog and menu that stands open. The same
// seed presses the same, as far as jobs and clocks let it.
#pragma once

#include <QWidget>

#include <filesystem>
#include <random>
#include <set>
#include <string>

namespace pistaro {

class RandomUser {
public:
    /// Files are chosen in `folder` alone.
    RandomUser(unsigned seed, std::filesystem::path folder) : random_(seed), folder_(std::move(folder)) {}

    /// Does one thing to what is in front: an open menu, else the dialog, else any window.
    void Act();

    int Acts() const { return acts_; }
    int Dialogs() const { return dialogs_; } ///< that were met, menus too

    /// Their names, or classes where they have none.
    const std::set<std::string>& Met() const { return met_; }

private:
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    void ActIn(QWidget& window);
    template <typename Menu>
    void ClickEntry(Menu& menu);
    void Press(QWidget& control);
    void Type(QWidget& control);
    void ChooseFile(QWidget& dialog);
    QWidget* AnyControl(const QWidget& window);

    std::mt19937 random_;
    std::filesystem::path folder_;
    int acts_ = 0;
    int dialogs_ = 0;
    std::set<std::string> met_;
    int actsInDialog_ = 0;
    const QWidget* lastDialog_ = nullptr; ///< never looked into: it may be gone
};

} // namespace pistaro
