// A sheet of paper by a painter: the drawing in its area, around it name, scale and a rule. For PDF, printer, preview.
#pragma once

#include "paper/number_badges.h"
#include "paper/sheets.h"

#include <QPainter>

namespace pistaro {

class PaperPage;
class ScaledBackdrop;

class SheetPainter {
public:
    /// `date` stands in the header; an empty one does not. `backdrop` is the picture of the drawing's background, if it
    /// has one. All must outlive it but the date.
    SheetPainter(const CircuitDrawing& drawing, const SheetPlan& plan, std::string date = {},
                 const ScaledBackdrop* backdrop = nullptr)
        : drawing_(drawing), plan_(plan), date_(std::move(date)), backdrop_(backdrop) {}

    /// Sheets of the plan, before them for tiles a sheet that shows all of them with their names.
    int Count() const { return static_cast<int>(plan_.Sheets.size()) + (HasOverview() ? 1 : 0); }

    /// Paints one of them, from 0, over a painter's paper of that resolution, whose dots begin at its corner.
    void Paint(QPainter& painter, double dotsPerInch, int number);

private:
    bool HasOverview() const { return plan_.Tiled && plan_.Sheets.size() > 1; }
    void PaintOverview(PaperPage& page) const;
    void PaintPlainSheet(PaperPage& page, const Sheet& sheet) const;
    void PaintGuidingSheet(PaperPage& page, std::size_t number);
    const std::vector<NumberBadge>& NumbersOf(std::size_t sheet);
    void PaintBackdrop(PaperPage& page, const Box& part, double scale) const;

    const CircuitDrawing& drawing_;
    const SheetPlan& plan_;
    std::string date_;
    const ScaledBackdrop* backdrop_;
    std::vector<std::vector<NumberBadge>> numbers_; ///< of each sheet; empty until one is painted
};

} // namespace pistaro
