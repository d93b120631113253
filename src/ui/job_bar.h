// The part of the status bar that tells how far a job is, and can end it. Hidden while there is none.
#pragma once

#include "ui/command_controls.h"

#include <QProgressBar>
#include <QToolButton>
#include <QWidget>

namespace pistaro {

class JobBar : public QWidget {
public:
    /// From now on the session's jobs run beside the window; the one that runs when the window goes is stopped.
    JobBar(Session& session, CommandControls& controls);
    ~JobBar() override;

    /// Shows itself while a job runs.
    void Refresh();

private:
    void Begin(const QString& job);

    /// Widens the bar so that its text goes in up to the end.
    void MakeRoomFor(int total);

    Session& session_;
    QProgressBar* const prgJob_;
};

} // namespace pistaro
