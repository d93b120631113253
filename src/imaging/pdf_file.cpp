#include "imaging/pdf_file.h"

#include "imaging/pdf_document.h"
#include "imaging/sheet_painter.h"

namespace pistaro {

std::string PdfOf(const CircuitDrawing& drawing, const SheetPlan& plan, const std::string& date,
                  const ScaledBackdrop* backdrop) {
    PdfDocument document(drawing.Name, plan.Width, plan.Height);
    SheetPainter sheets(drawing, plan, date, backdrop);
    for (int page = 0; page < sheets.Count(); ++page) {
        if (page > 0) document.NewPage();
        sheets.Paint(document.Painter(), PdfDocument::DotsPerInch, page);
    }
    return document.Bytes();
}

} // namespace pistaro
