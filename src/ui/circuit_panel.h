// The window's middle: the drawing area, as wide and high as there is room, with scroll bars, zoom buttons and refresh.
#pragma once

#include "ui/circuit_view.h"
#include "ui/command_controls.h"

#include <QScrollBar>

namespace pistaro {

class CircuitPanel : public QWidget {
public:
    CircuitPanel(Session& session, CommandControls& controls);

    CircuitView& View() { return *view_; }

    /// Brings the scroll bars to the view's ranges, values and steps.
    void Refresh();

    QSize sizeHint() const override { return {640, 640}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* Tools(CommandControls& controls);

    Session& session_;
    CircuitView* const view_;
    QScrollBar* const hMov_;
    QScrollBar* const vMov_;
    QWidget* const tools_;
};

} // namespace pistaro
