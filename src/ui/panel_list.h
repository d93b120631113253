// The list of a panel below the drawing: at first a few lines high, so that it leaves the drawing its height.
#pragma once

#include <QKeyEvent>
#include <QTreeWidget>

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
        constexpr int lines = 7; // the heading among them
        return {QTreeWidget::sizeHint().width(), lines * (fontMetrics().height() + 2)};
    }
};

} // namespace pistaro
