// The windows beside the main one.
#pragma once

#include "commands/session.h"
#include "ui/frmAbout.h"
#include "ui/frmStock.h"
#include "ui/suggestion_bar.h"

#include <QPointer>

namespace pistaro {

class Dialogs : public Windows {
public:
    Dialogs(Session& session, QWidget& window, SuggestionBar& suggestions)
        : session_(session), window_(window), suggestions_(suggestions) {}

    void ShowRecovered() override;
    void ShowDrawArea() override;
    void ShowColours() override;
    void ShowStatistics() override;

    void ShowClosings() override { suggestions_.ShowClosings(); }
    void ShowReplacements() override { suggestions_.ShowReplacements(); }

    /// These two stay beside the window, and come once.
    void ShowStock() override;
    void ShowAbout() override;

private:
    Session& session_;
    QWidget& window_;
    SuggestionBar& suggestions_;
    QPointer<frmAbout> about_;
    QPointer<frmStock> stock_;
};

} // namespace pistaro
