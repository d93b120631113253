#include "ui/times_chip.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>

#include <algorithm>

namespace pistaro {

namespace {

constexpr QPoint BesideMouse(14, 18); ///< clear of the pointer

} // namespace

TimesChip::TimesChip(QWidget& window) : QLabel(&window) {
    setObjectName("lblTimes");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Highlight);
    setForegroundRole(QPalette::HighlightedText);
    setMargin(3);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    hide();
}

void TimesChip::ShowTimes(int times) {
    qApp->removeEventFilter(this);
    setVisible(times > 1);
    if (times <= 1) return;
    setText(QString("%1 ×").arg(times));
    adjustSize();
    raise();
    Follow();
    qApp->installEventFilter(this); // no widget hears of the mouse wherever it is
}

bool TimesChip::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseMove) Follow();
    return false;
}

void TimesChip::Follow() {
    const QPoint place = parentWidget()->mapFromGlobal(QCursor::pos()) + BesideMouse;
    const QSize room = parentWidget()->size() - size();
    move(std::clamp(place.x(), 0, std::max(0, room.width())), std::clamp(place.y(), 0, std::max(0, room.height())));
}

} // namespace pistaro
