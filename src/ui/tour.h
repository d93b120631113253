// The tour through a first oval: a bubble beside the control concerned, a ring around it, and each step waits for its
// user's own press.
#pragma once

#include "commands/session.h"
#include "editor/tour.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <functional>

namespace pistaro {

class TourBubble : public QWidget {
public:
    /// Lies in the window; `ended` is called when its button is pressed.
    TourBubble(QWidget& window, const std::function<void()>& ended);

    void Tell(const QString& heading, const QString& text, const QString& remark, bool last);

    /// Stands beside a place of the window and points to it; `within` a place it stands in its upper corner.
    void PointTo(const QRect& place);
    void StandIn(const QRect& place);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Side { None, Left, Right, Bottom };
    void Fit(Side side);

    QLabel* const lblTourStep_;
    QLabel* const lblTour_;
    QLabel* const lblTourRemark_;
    QPushButton* const cmdEndTour_;
    Side side_ = Side::None; ///< that its arrow is on
    QPoint tip_;             ///< of the arrow
};

class Tour : public QObject {
public:
    /// `times` tells the digit that was typed for the next piece.
    Tour(Session& session, QWidget& window, std::function<int()> times);

    /// From the first step; nothing may be laid yet.
    void Begin();
    void End();

    /// Goes to where its user is now, if the tour is on.
    void Refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* ControlOf(const TourStop& stop) const;
    /// Heeds where the control goes, and whether it can be seen.
    void Watch(QWidget* control);
    void Stand();

    Session& session_;
    QWidget& window_;
    const std::function<int()> times_;
    QPointer<TourBubble> bubble_;
    QPointer<QWidget> ring_;
    QPointer<QWidget> control_; ///< beside which the bubble stands
    QPointer<QWidget> watched_; ///< the one concerned
};

} // namespace pistaro
