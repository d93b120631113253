#include "imaging/pdf_document.h"

#include "imaging/timeless_pdf.h"
#include "platform/fault.h"

#include <QPageSize>

namespace pistaro {

namespace {

QPageSize PageSizeOf(double width, double height) {
    constexpr double millimetres = 10;
    constexpr double most = 508; // cm: 14,400 points, which readers take at most
    if (width > most || height > most)
        throw Fault("Paper too large", "a page of a PDF is at most 508 x 508 cm; take tiles or another scale");
    return QPageSize(QSizeF(width * millimetres, height * millimetres), QPageSize::Millimeter, QString(),
                     QPageSize::ExactMatch);
}

} // namespace

PdfDocument::PdfDocument(const std::string& title, double width, double height) : writer_(&buffer_) {
    const QPageSize size = PageSizeOf(width, height);
    buffer_.open(QIODevice::WriteOnly);
    writer_.setTitle(QString::fromStdString(title));
    writer_.setCreator(QStringLiteral("Pistaro"));
    writer_.setResolution(DotsPerInch);
    writer_.setPageSize(size);
    writer_.setPageMargins(QMarginsF());
    painter_.begin(&writer_);
}

std::string PdfDocument::Bytes() {
    painter_.end();
    return WithoutDate(bytes_.toStdString());
}

} // namespace pistaro
