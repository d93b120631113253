// A PDF in memory, page by page, without the time at which it was made.
#pragma once

#include <QBuffer>
#include <QHashFunctions>
#include <QPainter>
#include <QPdfWriter>

#include <string>

namespace pistaro {

class PdfDocument {
public:
    static constexpr int DotsPerInch = 1200;

    /// Begins with one page of that size, cm. Fault: larger than a PDF's page may be.
    PdfDocument(const std::string& title, double width, double height);

    /// Its dots begin at the page's upper left corner.
    QPainter& Painter() { return painter_; }
    void NewPage() { writer_.newPage(); }

    /// Ends the document.
    std::string Bytes();

private:
    /// While it lives, new tables of hashed keys have an order that is the same on every run: the writer puts the fonts
    /// that it embeds in such an order.
    class SteadyOrder {
    public:
        SteadyOrder() { QHashSeed::setDeterministicGlobalSeed(); }
        ~SteadyOrder() { QHashSeed::resetRandomGlobalSeed(); }
        SteadyOrder(const SteadyOrder&) = delete;
        SteadyOrder& operator=(const SteadyOrder&) = delete;
    };

    SteadyOrder order_;
    QByteArray bytes_;
    QBuffer buffer_{&bytes_};
    QPdfWriter writer_;
    QPainter painter_;
};

} // namespace pistaro
