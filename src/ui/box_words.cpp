#include "ui/box_words.h"

namespace pistaro {

namespace {

/// What makes it more likely that there is one.
QString EasierFor(const BoxWish& wish) {
    const QString without = wish.MustHave == MustHaves() ? "" : "Without the ticked must-haves there may be some. ";
    return without + "More curves, straights of another length, or a larger room make it easier.";
}

QString CountOfShapes(std::size_t count) { return QString::number(count) + (count == 1 ? " shape" : " shapes"); }

} // namespace

FoundCount CountOf(std::size_t circuits, const std::vector<RankedCircuit>& order, int shown, bool eachShape) {
    FoundCount count{.Circuits = circuits, .Shown = static_cast<std::size_t>(shown)};
    if (!eachShape) return count;
    count.Shapes = order.size();
    for (const RankedCircuit& shape : order)
        count.LikeThem += static_cast<std::size_t>(shape.Others);
    return count;
}

QString FoundText(const FoundCount& count) {
    QString found = QString::number(count.Circuits) + (count.Circuits == 1 ? " circuit found" : " circuits found");
    if (count.AreBesideOthers) found += " beside the other tracks";
    if (!count.Shapes)
        return count.Circuits > count.Shown ? QString("The best %1 of %2").arg(count.Shown).arg(found) : found;
    const QString shapes = CountOfShapes(*count.Shapes);
    if (*count.Shapes + count.LikeThem < count.Circuits) return QString("The best %1 of %2").arg(shapes, found);
    return *count.Shapes < count.Circuits ? found + ", of " + shapes : found;
}

QString IdleText(bool isBoxEmpty) {
    return isBoxEmpty ? "Put pieces into the box: type their counts, or add a set."
                      : "Press Search to see what these pieces make in this room.";
}

QString StandingText(BoxStanding standing, std::size_t count, const QString& found, const QString& instead) {
    switch (standing) {
    case BoxStanding::Idle:
        return found + ".";
    case BoxStanding::Runs:
        return found + ", still searching …";
    case BoxStanding::Paused:
        return found + " so far.";
    case BoxStanding::Ended:
        if (count == 0) return "Nothing found in the time so far: Continue looks on, or " + instead + ".";
        return found + ". Continue looks for others.";
    case BoxStanding::Complete:
        break;
    }
    return count == 0 ? "These pieces make no circuit in this room." : found + "; there are no others.";
}

QString OutdatedText(const QString& whyNot) {
    if (whyNot.isEmpty()) return "This was found for another box, room or part than stands at the left.";
    return "This was found for other wishes. As they stand at the left: " + whyNot;
}

QString InsteadFor(const BoxWish& wish, bool varies) {
    if (wish.Kept) return "keep less of the track";
    return varies ? "try a larger room, or other pieces" : "try a larger room, or more curves";
}

QString HintFor(BoxStanding standing, const BoxWish& wish, const QString& rare, bool isLate) {
    const QString easier = rare.isEmpty() ? EasierFor(wish) : rare;
    switch (standing) {
    case BoxStanding::Idle:
        break;
    case BoxStanding::Runs:
        if (!rare.isEmpty()) return "Nothing so far. " + rare;
        if (isLate && !wish.Kept) return "Nothing in the usual time; the search looks on. Stop ends it.\n\n" + easier;
        return wish.Kept ? "Around a part that is kept the first circuit may take a minute: keep less of the track, or "
                           "wait. Stop ends the search."
                         : "The first circuits come in a moment.";
    case BoxStanding::Complete:
        return "Every way to lay these pieces was tried, and none closes inside the room.\n\n" + easier;
    case BoxStanding::Paused:
    case BoxStanding::Ended:
        return "No circuit so far.\n\n" + easier;
    }
    return (rare.isEmpty() ? QString() : rare + "\n\n") +
           QString("1.  %1\n\n2.  Say how large the room is.\n\n3.  Press Search, and choose among the circuits.")
               .arg(
                   wish.Varied
                       ? "The box holds the pieces of your track; add others, if you like. To keep a part of it, click "
                         "that part's first piece in its picture at the right, or in the drawing, then its last one "
                         "with Shift."
                       : "Fill the box: All I Own, a set that you have, or a click on a line and its count.");
}

} // namespace pistaro
