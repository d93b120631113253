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

    /// Called with the code of the piece that the mouse has dragged out of the menu, which is closed then.
    std::function<void(const std::string&)> TakenUp = [](const std::string&) {};

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void ShowPieces();

    Session& session_;
    const std::vector<int> rows_;
    std::string pressed_; ///< the code of the piece on which the button went down, if it can be laid
    QPointF pressedAt_;
};

} // namespace pistaro
