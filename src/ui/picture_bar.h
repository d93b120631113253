// The strip below the drawing while the picture under the circuit is dragged, turned and faded in it.
#pragma once

#include "ui/elided_label.h"
#include "ui/strip.h"

#include <QMouseEvent>
#include <QSlider>

#include <functional>
#include <memory>

namespace pistaro {

/// While it is shown the drawing's left button moves the picture and nothing else, and the arrow keys move it by 1 cm.
/// Each drag is a step of the history; Esc ends a drag without it, and else goes.
class PictureBar : public Strip {
public:
    PictureBar(Session& session, CircuitView& view);

    /// Comes, or goes.
    void Toggle();

    /// Called when it has gone.
    std::function<void()> Gone = [] {};

    /// To be called after each change: without a picture there is nothing to move.
    void Refresh(const Changes& changes);

protected:
    void Accept() override { Leave(); }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Doing { Nothing, Moving, Turning };

    QLayout* Fields();
    /// Of the present picture. False where that cannot be shown.
    bool TakeSize();
    bool Handle(QEvent& event);
    bool Press(const QMouseEvent& event);
    bool Move(const QMouseEvent& event);
    bool Release();
    bool OnKey(const QKeyEvent& key);
    void EndDrag();
    bool IsOnHandle(QPointF place) const;
    void ShowCursor(bool onHandle);

    /// The picture as the running drag, or the slider, has it; else as it lies.
    const ScaledBackground& Now() const;
    void Propose(const ScaledBackground& background);
    /// Lays the picture so; works of the same run that follow each other quickly are one step.
    void Lay(const ScaledBackground& background, const char* step, const char* run = "");
    void Nudge(double right, double up);
    /// Its frame with the handle that turns it, and where it lies in words.
    void ShowFrame();
    WorldPoint HandlePlace() const;

    CircuitView& canvas_;
    ElidedLabel* const lblPlace_;
    QSlider* const sldOpacity_;
    QSize pixels_; ///< of the picture
    Doing doing_ = Doing::Nothing;
    std::shared_ptr<const ScaledBackground> proposed_;
    ScaledBackground before_; ///< the drag
    WorldPoint grip_;         ///< of the world, where the drag began
};

} // namespace pistaro
