// The special pieces of a basic piece's shape, opened from its button.
#pragma once

#include "ui/command_controls.h"

#include <QMenu>

#include <functional>

namespace pistaro {

class FoldOut : public QMenu {
public:
    /// `basic` is the button's piece, `rows` are the catalogue's of the special ones.
    FoldOut(Session& session, CommandControls& controls, const std::string& basic, const std::vector<int>& rows,
            QWidget* parent);

private:
    void ShowPieces();

    Session& session_;
    const std::vector<int> rows_;
};

} // namespace pistaro
