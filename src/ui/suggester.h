// While it is wanted, the best closing of the current track as a faint ghost, looked for beside the window after each
// change.
#pragma once

#include "commands/closing_commands.h"
#include "ui/circuit_view.h"

#include <QObject>

namespace pistaro {

class Suggester : public QObject {
public:
    Suggester(Session& session, CircuitView& view);

    /// Looks for what closes the track as it is now; the next change gives up what has not been found by then.
    void Refresh(const Changes& changes);

private:
    void Show(const Suggestion& suggestion);

    Session& session_;
    CircuitView& view_;
    bool shown_ = false; ///< as Looks::Suggestions was when it was last looked at
    Jobs jobs_;
};

} // namespace pistaro
