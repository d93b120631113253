// A line of text that gives way where there is no room for all of it: its end becomes dots, and its tool tip tells all;
// or none of it is shown where less than all tells nothing.
#pragma once

#include <QLabel>
#include <QPainter>

namespace pistaro {

class ElidedLabel : public QLabel {
public:
    ElidedLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

    void SetAllOrNothing(bool isAllOrNothing) { isAllOrNothing_ = isAllOrNothing; }

protected:
    void paintEvent(QPaintEvent*) override {
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        setToolTip(shown == text() ? QString() : text());
        if (isAllOrNothing_ && shown != text()) return;
        QPainter(this).drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
    }

private:
    bool isAllOrNothing_ = false;
};

} // namespace pistaro
