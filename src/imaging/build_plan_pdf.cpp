#include "imaging/build_plan_pdf.h"

#include "imaging/pdf_document.h"
#include "imaging/plan_pages.h"

namespace pistaro {

std::string BuildPlanPdf(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper) {
    PdfDocument document(plan.Drawing.Name, paper.Width, paper.Height);
    const PaperPage page(document.Painter(), paper.Height, PdfDocument::DotsPerInch);
    DrawPlanPages(catalogue, plan, paper, page, [&] {
        document.NewPage();
        return true;
    });
    return document.Bytes();
}

} // namespace pistaro
