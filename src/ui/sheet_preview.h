// Sheets as they would come out, one of them shown on a desk.
#pragma once

#include "imaging/backdrop.h"
#include "imaging/sheet_painter.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace pistaro {

/// A drawing with the sheets that it takes.
struct PlannedSheets {
    CircuitDrawing Drawing;
    SheetPlan Plan;
    std::shared_ptr<const ScaledBackdrop> Backdrop;

    SheetPainter Painter(const std::string& date) const { return {Drawing, Plan, date, Backdrop.get()}; }
};

/// "1 sheet at 1:2.5", "4 sheets at 1:1: an overview and 3 tiles; 12 with walls alone left out".
QString SheetsText(const PlannedSheets& sheets);

/// "1 sheet of A4, portrait, at 1:2.5", "4 sheets of A4 at 1:1: an overview and 3 tiles, covering 0.2 × 0.7 m of
/// paper".
QString PrintedText(const PlannedSheets& sheets, const QString& paper);

/// Which sheet that is, from 0: "Overview", "Tile B2"; empty where there is but one.
QString SheetText(const PlannedSheets& sheets, int number);

class SheetPreview : public QWidget {
public:
    /// Shows `sheets`, which its owner keeps and changes, with that date in their headers, as large as there is room.
    SheetPreview(const std::optional<PlannedSheets>& sheets, std::string date);

    /// Shows that sheet from now on, from 0; to be called after each change of the sheets, too.
    void ShowSheet(int number);

    /// Called when its user turns the wheel over it: by so many sheets on, or back below 0.
    std::function<void(int)> Turned;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    const std::optional<PlannedSheets>& sheets_;
    const std::string date_;
    int number_ = 0;
    int wheel_ = 0; ///< what was turned of the next notch
};

} // namespace pistaro
