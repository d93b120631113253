// The list of a panel below the drawing: at first a few lines high, more in a high window, so that it leaves the
// drawing the larger part.
#pragma once

#include <QKeyEvent>
#include <QTreeWidget>

#include <algorithm>

namespace pistaro {

class PanelList : public QTreeWidget {
public:
    PanelList() {
        setRootIsDecorated(false);
        setAlternatingRowColors(true);
    }

    /// Del and Backspace in a list are no commands on the track.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Delete || key == Qt::Key_Backspace) event->accept();
        }
        return QTreeWidget::event(event);
    }

    QSize sizeHint() const override {
        constexpr int lines = 7;     // the heading among them
        constexpr int others = 200;  // pixels of a window that no panel shares: menus, headings, the line below
        constexpr double part = 0.3; // of the rest
        const int share = static_cast<int>(part * (window()->height() - others));
        return {QTreeWidget::sizeHint().width(), std::max(lines * (fontMetrics().height() + 2), share)};
    }
};

} // namespace pistaro
