// A line of text that gives way where there is no room for all of it: its end becomes dots, and its tool tip tells all.
#pragma once

#include <QLabel>
#include <QPainter>

namespace pistaro {

class ElidedLabel : public QLabel {
public:
    ElidedLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

protected:
    void paintEvent(QPaintEvent*) override {
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        setToolTip(shown == text() ? QString() : text());
        QPainter(this).drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
    }
};

} // namespace pistaro
