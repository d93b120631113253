#include "ui/tip_place.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <limits>

namespace pistaro {

namespace {

constexpr int Gap = 8;

/// The window in which the toolkit shows the tip of the moment.
QWidget* ShownTip() {
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel") && window->isVisible()) return window;
    return nullptr;
}

QRect Within(QRect place, const QRect& screen) {
    place.moveLeft(std::max(screen.left(), std::min(place.left(), screen.right() + 1 - place.width())));
    place.moveTop(std::max(screen.top(), std::min(place.top(), screen.bottom() + 1 - place.height())));
    return place;
}

long long AreaOf(const QRect& place) {
    return place.isEmpty() ? 0 : static_cast<long long>(place.width()) * place.height();
}

class MenuTips : public QObject {
public:
    explicit MenuTips(QMenu& menu) : QObject(&menu), menu_(menu) { menu.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::ToolTip) return false;
        QAction* const entry = menu_.actionAt(static_cast<QHelpEvent*>(event)->pos());
        // An entry without a tip has its own words for one, which it shows already.
        const bool tells = entry != nullptr && entry->toolTip() != QString(entry->text()).remove('&');
        if (!tells) {
            QToolTip::hideText(); // of another entry
            return true;
        }
        QRect row = menu_.rect();
        row.setTop(menu_.actionGeometry(entry).top());
        row.setBottom(menu_.actionGeometry(entry).bottom());
        ShowTipBeside({menu_.mapToGlobal(row.topLeft()), row.size()}, entry->toolTip(), menu_);
        return true;
    }

private:
    QMenu& menu_;
};

} // namespace

QRect PlaceOfTip(QSize size, const QRect& told, const QRect& screen, const std::vector<QRect>& spared) {
    const int right = told.right() + 1 + Gap;
    const int below = told.bottom() + 1 + Gap;
    const int left = told.left() - Gap - size.width();
    const int above = told.top() - Gap - size.height();
    const std::array<QPoint, 4> corners{QPoint(right, told.top()), QPoint(left, told.top()), QPoint(told.left(), below),
                                        QPoint(told.left(), above)};
    QRect best;
    long long least = std::numeric_limits<long long>::max();
    for (const QPoint corner : corners) {
        const QRect place = Within(QRect(corner, size), screen);
        constexpr int heavily = 100; // what the tip tells of is covered where nothing else will do
        long long covered = heavily * AreaOf(place & told);
        for (const QRect& other : spared)
            covered += AreaOf(place & other);
        if (covered >= least) continue;
        least = covered;
        best = place;
    }
    return best;
}

void ShowTipBeside(const QRect& told, const QString& text, QWidget& of, const std::vector<QRect>& spared) {
    QToolTip::showText(told.topRight(), text, &of);
    // Only now is its size known. Where windows may not move themselves it stays where it is.
    QWidget* const tip = text.isEmpty() ? nullptr : ShownTip();
    if (tip != nullptr) tip->move(PlaceOfTip(tip->size(), told, of.screen()->availableGeometry(), spared).topLeft());
}

QRect RowOfColumn(const QWidget& control, const QRect& part) {
    QRect row(control.mapToGlobal(part.topLeft()), part.size());
    const QWidget* column = control.parentWidget();
    while (column != nullptr && qobject_cast<const QScrollArea*>(column) == nullptr)
        column = column->parentWidget();
    if (column == nullptr) return row;
    row.setLeft(column->mapToGlobal(QPoint(0, 0)).x());
    row.setWidth(column->width());
    return row;
}

void KeepTipsBeside(QMenu& menu) { new MenuTips(menu); }

} // namespace pistaro
