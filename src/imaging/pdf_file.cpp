#include "imaging/pdf_file.h"

#include "imaging/sheet_painter.h"
#include "imaging/timeless_pdf.h"
#include "platform/fault.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

namespace pistaro {

namespace {

constexpr int DotsPerInch = 1200;

QPageSize PageSizeOf(const SheetPlan& plan) {
    constexpr double millimetres = 10;
    constexpr double most = 508; // cm: 14,400 points, which readers take at most
    if (plan.Width > most || plan.Height > most)
        throw Fault("Paper too large", "a page of a PDF is at most 508 x 508 cm; take tiles or another scale");
    return QPageSize(QSizeF(plan.Width * millimetres, plan.Height * millimetres), QPageSize::Millimeter, QString(),
                     QPageSize::ExactMatch);
}

} // namespace

std::string PdfOf(const CircuitDrawing& drawing, const SheetPlan& plan) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QString::fromStdString(drawing.Name));
    writer.setCreator(QStringLiteral("Pistaro"));
    writer.setResolution(DotsPerInch);
    writer.setPageSize(PageSizeOf(plan));
    writer.setPageMargins(QMarginsF());
    const SheetPainter sheets(drawing, plan);
    QPainter painter(&writer);
    for (int page = 0; page < sheets.Count(); ++page) {
        if (page > 0) writer.newPage();
        sheets.Paint(painter, DotsPerInch, page);
    }
    painter.end();
    return WithoutDate(bytes.toStdString());
}

} // namespace pistaro
