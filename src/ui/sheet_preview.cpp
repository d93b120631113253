#include "ui/sheet_preview.h"

#include "imaging/paper_page.h"
#include "ui/named_controls.h"

#include <QPainter>

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

SheetPreview::SheetPreview(const std::optional<PlannedSheets>& sheets, std::string date, QSize size)
    : sheets_(sheets), date_(std::move(date)) {
    setFixedSize(size);
}

void SheetPreview::ShowSheet(int number) {
    number_ = number;
    update();
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
