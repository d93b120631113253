#include "ui/sheet_preview.h"

#include "imaging/paper_page.h"
#include "ui/named_controls.h"

#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace pistaro {

QString SheetsText(const PlannedSheets& sheets) {
    const QString scale = Shown(sheets.Plan.ScaleText());
    const int count = sheets.Painter({}).Count();
    QString text =
        count == 1
            ? QString("1 sheet at %1").arg(scale)
            : QString("%1 sheets at %2: an overview and %3 tiles").arg(count).arg(scale).arg(sheets.Plan.Sheets.size());
    if (sheets.Plan.LeftOut > 0) text += QString("; %1 with walls alone left out").arg(sheets.Plan.LeftOut);
    return text;
}

QString PrintedText(const PlannedSheets& sheets, const QString& paper) {
    const SheetPlan& plan = sheets.Plan;
    const int count = sheets.Painter({}).Count();
    const QString scale = Shown(plan.ScaleText());
    const QString leftOut = plan.LeftOut > 0 ? QString("; %1 with walls alone left out").arg(plan.LeftOut) : QString();
    if (count == 1) {
        const char* const way = plan.Width > plan.Height ? "landscape" : "portrait";
        return QString("1 sheet of %1, %2, at %3").arg(paper, way, scale) + leftOut;
    }
    const bool inches = sheets.Drawing.Preferences.Units.Inches;
    const double unit = inches ? 2.54 : 100; // cm
    const auto length = [&](double world) { return QString::number(world / plan.Scale / unit, 'f', inches ? 0 : 1); };
    return QString("%1 sheets of %2 at %3: an overview and %4 tiles, covering %5\u00A0×\u00A0%6\u00A0%7 of paper")
               .arg(count)
               .arg(paper, scale)
               .arg(plan.Sheets.size())
               .arg(length(plan.Whole.Width()), length(plan.Whole.Height()), inches ? "in" : "m") +
           leftOut;
}

QString SheetText(const PlannedSheets& sheets, int number) {
    if (sheets.Painter({}).Count() == 1) return {};
    return number == 0 ? "Overview" : "Tile " + Shown(sheets.Plan.Sheets[static_cast<std::size_t>(number) - 1].Name);
}

SheetPreview::SheetPreview(const std::optional<PlannedSheets>& sheets, std::string date)
    : sheets_(sheets), date_(std::move(date)) {
    constexpr QSize least(300, 300); // in which a sheet can still be told from another
    setMinimumSize(least);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SheetPreview::ShowSheet(int number) {
    number_ = number;
    update();
}

void SheetPreview::wheelEvent(QWheelEvent* event) {
    if (!Turned) return event->ignore();
    wheel_ -= event->angleDelta().y();
    const int notches = wheel_ / QWheelEvent::DefaultDeltasPerStep;
    wheel_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0) Turned(notches);
    event->accept();
}

void SheetPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    if (!sheets_) return;
    constexpr double desk = 10; // pixels around the paper
    const SheetPlan& plan = sheets_->Plan;
    const double perCm = std::min((width() - 2 * desk) / plan.Width, (height() - 2 * desk) / plan.Height);
    const QSizeF paper(plan.Width * perCm, plan.Height * perCm);
    painter.translate((width() - paper.width()) / 2, (height() - paper.height()) / 2);
    painter.fillRect(QRectF(QPointF(), paper), Qt::white);
    sheets_->Painter(date_).Paint(painter, perCm * CmPerInch, number_);
}

} // namespace pistaro
