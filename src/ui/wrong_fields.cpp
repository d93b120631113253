#include "ui/wrong_fields.h"

#include "ui/named_controls.h"

#include <QToolTip>

#include <algorithm>

namespace pistaro {

WrongFields::WrongFields(QTreeWidget& table)
    : table_(table), note_(Named(new QLabel(table.viewport()), "lblFieldFault")) {
    note_->setTextFormat(Qt::PlainText);
    note_->setPalette(QToolTip::palette());
    note_->setForegroundRole(QPalette::ToolTipText);
    note_->setBackgroundRole(QPalette::ToolTipBase);
    note_->setAutoFillBackground(true);
    note_->setFrameShape(QFrame::Box);
    note_->setMargin(2);
    note_->setAttribute(Qt::WA_TransparentForMouseEvents); // the fields below it can be clicked
    note_->hide();
}

WrongFields::Place WrongFields::PlaceOf(const QModelIndex& field) {
    return {field.siblingAtColumn(0).data().toString(), field.column()};
}

std::optional<QString> WrongFields::At(const QModelIndex& field) const {
    const auto found = texts_.find(PlaceOf(field));
    return found == texts_.end() ? std::nullopt : std::optional(found->second);
}

QModelIndex WrongFields::First() const {
    const QAbstractItemModel& lines = *table_.model();
    for (int line = 0; line < lines.rowCount() && !texts_.empty(); ++line) {
        for (int column = 0; column < lines.columnCount(); ++column) {
            const QModelIndex field = lines.index(line, column);
            if (At(field)) return field;
        }
    }
    return {};
}

void WrongFields::Say(const QRect& field, const QString& why) {
    const QRect ground = table_.viewport()->rect();
    note_->setText(why);
    note_->setWordWrap(false);
    QSize size = note_->sizeHint();
    if (size.width() > ground.width()) {
        note_->setWordWrap(true);
        size = QSize(ground.width(), note_->heightForWidth(ground.width()));
    }
    constexpr int between = 2; // pixels
    const int below = field.bottom() + between;
    const int top = below + size.height() <= ground.bottom() ? below : field.top() - between - size.height();
    const int left = std::clamp(field.right() - size.width(), 0, std::max(0, ground.width() - size.width()));
    note_->setGeometry({QPoint(left, std::max(0, top)), size});
    note_->show();
    note_->raise();
}

void PaintFieldFrame(QPainter& painter, const QRect& place, const QPalette& palette, const QColor& ink, int pixels) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, pixels));
    painter.setBrush(palette.color(QPalette::Base));
    constexpr double rounding = 2.5;
    painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
    painter.restore();
}

void MarkWrong(QLineEdit& editor, bool isWrong) {
    const QString frame = QString("QLineEdit { border: 2px solid %1; }").arg(QColor(WrongColour).name());
    editor.setStyleSheet(isWrong ? frame : QString());
}

} // namespace pistaro
