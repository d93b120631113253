// The tour through a first oval: a bubble in a corner of the drawing, a ring around the control concerned, an arrow
// from one to the other, and each step waits for its user's own press.
#pragma once

#include "commands/session.h"
#include "editor/tour.h"
#include "ui/circuit_view.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <functional>

namespace pistaro {

class TourBubble : public QWidget {
public:
    /// Lies in the window; `takenBack` and `ended` are called when its buttons are pressed.
    TourBubble(QWidget& window, const std::function<void()>& takenBack, const std::function<void()>& ended);

    void Tell(const QString& heading, const QString& text, const QString& remark, bool last);

    /// With a button that takes back what was done last.
    void OfferToTakeBack(bool offers) { cmdTakeBack_->setVisible(offers); }

    /// Where it comes to stand in that corner of a place of the window.
    QRect PlaceIn(const QRect& place, Qt::Corner corner) const;

    /// Becomes as large as its words take.
    void FitWords();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* const lblTourStep_;
    QLabel* const lblTour_;
    QLabel* const lblTourRemark_;
    QPushButton* const cmdTakeBack_;
    QPushButton* const cmdEndTour_;
};

class Tour : public QObject {
public:
    /// It is told in the drawing, which covers no button.
    Tour(Session& session, QWidget& window, CircuitView& drawing);

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
    /// In the corner nearest to what it tells of, of those where it hides neither legend nor what is laid.
    QRect PlaceOfBubble(const QRect& ring) const;
    /// How much it would hide there.
    int HiddenBy(const QRect& bubble) const;
    QRect PlaceOf(const QWidget& part) const { return {part.mapTo(&window_, QPoint()), part.size()}; }

    Session& session_;
    QWidget& window_;
    CircuitView& drawing_;
    QPointer<TourBubble> bubble_;
    QPointer<QWidget> ring_;
    QPointer<QWidget> control_; ///< that the ring is around
    QPointer<QWidget> watched_; ///< the one concerned, seen or not
};

} // namespace pistaro
