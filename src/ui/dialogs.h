// The windows beside the main one.
#pragma once

#include "commands/session.h"
#include "ui/frmAbout.h"
#include "ui/frmStock.h"

#include <QPointer>

namespace pistaro {

class Dialogs : public Windows {
public:
    Dialogs(Session& session, QWidget& window) : session_(session), window_(window) {}

    void ShowRecovered() override;
    void ShowDrawArea() override;
    void ShowColours() override;
    void ShowStatistics() override;

    /// These two stay beside the window, and come once.
    void ShowStock() override;
    void ShowAbout() override;

private:
    Session& session_;
    QWidget& window_;
    QPointer<frmAbout> about_;
    QPointer<frmStock> stock_;
};

} // namespace pistaro
