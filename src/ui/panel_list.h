// The list of a panel below the drawing: at first a few lines high, so that it leaves the drawing its height.
#pragma once

#include <QTreeWidget>

namespace pistaro {

class PanelList : public QTreeWidget {
public:
    PanelList() {
        setRootIsDecorated(false);
        setAlternatingRowColors(true);
    }

    QSize sizeHint() const override {
        constexpr int lines = 7; // the heading among them
        return {QTreeWidget::sizeHint().width(), lines * (fontMetrics().height() + 2)};
    }
};

} // namespace pistaro
