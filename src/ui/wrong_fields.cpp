#include "ui/wrong_fields.h"

#include <QToolTip>

#include <algorithm>

namespace pistaro {

FaultNote::FaultNote(QWidget& ground, const char* name) : QLabel(&ground), ground_(ground) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    setAutoFillBackground(true);
    setFrameShape(QFrame::Box);
    setMargin(2);
    setAttribute(Qt::WA_TransparentForMouseEvents); // the fields below it can be clicked
    hide();
}

void FaultNote::Say(const QRect& field, const QString& why, Qt::Edge edge) {
    const QRect ground = ground_.rect();
    const int room = edge == Qt::LeftEdge ? ground.width() - field.left() : ground.width();
    setText(why);
    setWordWrap(false);
    QSize size = sizeHint();
    if (size.width() > room) {
        setWordWrap(true);
        size = QSize(room, heightForWidth(room));
    }
    constexpr int between = 2; // pixels
    const int below = field.bottom() + between;
    const int top = below + size.height() <= ground.bottom() ? below : field.top() - between - size.height();
    const int left = edge == Qt::LeftEdge ? field.left() : field.right() - size.width();
    const int last = std::max(0, ground.width() - size.width());
    setGeometry({QPoint(std::clamp(left, 0, last), std::max(0, top)), size});
    show();
    raise();
}

WrongFields::WrongFields(QTreeWidget& table)
    : table_(table), note_(new FaultNote(*table.viewport(), "lblFieldFault")) {}

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
