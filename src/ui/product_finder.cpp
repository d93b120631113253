#include "ui/product_finder.h"

#include <QKeyEvent>
#include <QPainter>

namespace pistaro {

namespace {

/// Makers write "change over" and "change-over".
QString WithoutHyphens(QString text) { return text.replace('-', ' '); }

} // namespace

ProductFinder::ProductFinder(const char* name) {
    setObjectName(name);
    setPlaceholderText("Find a product");
    setAccessibleName("Find a product");
    setToolTip("Some of a product's code or name; Enter goes on to its count");
}

void ProductFinder::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down) return QLineEdit::keyPressEvent(event);
    event->accept();
    GoesOn();
}

bool HoldsText(const QTreeWidgetItem& line, int nameColumn, const QString& text) {
    const auto holds = [wanted = WithoutHyphens(text)](const QString& in) {
        return WithoutHyphens(in).contains(wanted, Qt::CaseInsensitive);
    };
    return holds(line.text(0)) || holds(line.text(nameColumn));
}

QTreeWidgetItem* FirstListed(const QTreeWidget& list) {
    for (int place = 0; place < list.topLevelItemCount(); ++place) {
        if (!list.topLevelItem(place)->isHidden()) return list.topLevelItem(place);
    }
    return nullptr;
}

void PaintInstead(QTreeWidget& list, const QString& text) {
    constexpr int margin = 8;
    QPainter painter(list.viewport());
    painter.setPen(list.palette().color(QPalette::PlaceholderText));
    painter.drawText(list.viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace pistaro
