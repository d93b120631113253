// The window's middle: the drawing area, as wide and high as there is room, with scroll bars, zoom buttons and refresh.
#pragma once

#include "ui/circuit_view.h"
#include "ui/command_controls.h"
#include "ui/strip.h"

#include <QScrollBar>

#include <vector>

namespace pistaro {

class CircuitPanel : public QWidget {
public:
    CircuitPanel(Session& session, CommandControls& controls);

    CircuitView& View() { return *view_; }

    /// From now on the strip stands below the drawing while it is shown, and leaves it less height. Of several strips
    /// one is shown at a time, that which was opened last.
    void TakeStrip(Strip& strip);

    /// Brings the scroll bars to the view's ranges, values and steps.
    void Refresh();

    QSize sizeHint() const override { return {640, 640}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* Tools(CommandControls& controls);
    void Arrange();

    Session& session_;
    CircuitView* const view_;
    QScrollBar* const hMov_;
    QScrollBar* const vMov_;
    QWidget* const tools_;
    std::vector<Strip*> strips_;
};

} // namespace pistaro
