// What the window remembers of itself from one start to the next, in a file of its own.
#pragma once

#include "commands/session.h"

#include <QObject>
#include <QTimer>

#include <filesystem>

class QLocale;
class QMainWindow;

namespace pistaro {

/// The paper that is usual where the user lives: "Letter" in the Americas' north and some other places, else "A4".
std::string PaperOfLocale(const QLocale& locale);

/// Brings the window to its place and size, its panels to where they stood, and the session to its looks, its user's
/// habits and whether it shows numbers, as they were kept; at a first start tracks are drawn as they look, and paper is
/// as the user's country has it. Where the
/// screen has no room for them the side columns are folded away. Without a path nothing was kept.
void RestoreWindow(const std::filesystem::path& path, QMainWindow& window, Session& session);

/// Keeps them. Without a path, or where the file cannot be written, nothing is kept.
void KeepWindow(const std::filesystem::path& path, const QMainWindow& window, const Session& session);

/// Keeps them a moment after each change, so that they outlive an end that gives no time for it.
class WindowKeeper : public QObject {
public:
    WindowKeeper(std::filesystem::path path, QMainWindow& window, Session& session);

    void Keep();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const std::filesystem::path path_;
    QMainWindow& window_;
    Session& session_;
    bool numbers_ = false; ///< as they were at the last change, as the habits
    Habits habits_;
    QTimer rest_;
    Observation observation_;
};

} // namespace pistaro
