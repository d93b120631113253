// Where tool tips stand: beside what they tell of, so that one sees what one works with and what lies next to it.
#pragma once

#include <QRect>
#include <QString>

#include <vector>

class QMenu;
class QWidget;

namespace pistaro {

/// The place for a tip of that size beside `told`, on `screen`: right of it, left, below or above, whichever covers the
/// least of `spared`.
QRect PlaceOfTip(QSize size, const QRect& told, const QRect& screen, const std::vector<QRect>& spared);

/// Shows a tip there; all places are of the screen. `of` is what the mouse is on.
void ShowTipBeside(const QRect& told, const QString& text, QWidget& of, const std::vector<QRect>& spared = {});

/// From its part of a side column to the column's edges; `part` is of the control.
QRect RowOfColumn(const QWidget& control, const QRect& part);

/// Has the tips of a menu's entries stand beside the menu.
void KeepTipsBeside(QMenu& menu);

} // namespace pistaro
