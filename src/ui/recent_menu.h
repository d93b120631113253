// Circuit ▸ Recent: the circuits that were loaded and saved last. Their list is read when the menu opens.
#pragma once

#include "ui/command_controls.h"

#include <QMenu>

namespace pistaro {

class RecentMenu : public QMenu {
public:
    RecentMenu(Session& session, QWidget* parent);

private:
    void Refresh();

    Session& session_;
    CommandControls controls_; ///< its own: the window's are brought up to date after each piece of work
    QList<QAction*> circuits_;
};

} // namespace pistaro
