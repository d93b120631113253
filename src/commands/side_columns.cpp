#include "commands/side_columns.h"

namespace pistaro {

bool IsColumnShown(const Session& session, SideColumnLook column) {
    const Looks& looks = session.Looks;
    const bool givesWay = !session.HasRoomForColumns && column == &Looks::TrackColumn && looks.PieceColumn;
    return looks.Columns && looks.*column && !givesWay;
}

void FoldColumn(Session& session, SideColumnLook column) {
    const SideColumnLook other = column == &Looks::PieceColumn ? &Looks::TrackColumn : &Looks::PieceColumn;
    const bool isOtherShown = IsColumnShown(session, other);
    Looks& looks = session.Looks;
    if (!IsColumnShown(session, column)) {
        looks.Columns = looks.*column = true;
        looks.*other = isOtherShown && session.HasRoomForColumns;
    } else if (isOtherShown) {
        looks.*column = false;
    } else {
        looks.Columns = false; // and what brings the columns back brings both
        looks.*column = looks.*other = true;
    }
}

void ShowPieceColumn(Session& session) { session.Looks.Columns = session.Looks.PieceColumn = true; }

} // namespace pistaro
