// A scroll bar for mouse and keys, which shows when it is the one that the keys move.
#pragma once

#include <QScrollBar>

namespace pistaro {

class KeyScrollBar : public QScrollBar {
public:
    explicit KeyScrollBar(Qt::Orientation orientation);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pistaro
