// A line of text that gives way where there is no room for all of it: its end becomes dots, and its tool tip tells all;
// or none of it is shown where less than all tells nothing.
#pragma once

#include <QLabel>
#include <QPainter>

namespace pistaro {

class ElidedLabel : public QLabel {
public:
    ElidedLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

    /// Texts in whose favour it gives way first, the longest first.
    void SetShorter(const QStringList& texts) { shorter_ = texts; }

    /// The longest of its texts that there is room for; the shortest where there is not even for that.
    QString Fitting() const {
        for (const QString& one : QStringList(text()) + shorter_) {
            if (fontMetrics().horizontalAdvance(one) <= contentsRect().width()) return one;
        }
        return shorter_.isEmpty() ? text() : shorter_.back();
    }

    void SetAllOrNothing(bool isAllOrNothing) { isAllOrNothing_ = isAllOrNothing; }

protected:
    void paintEvent(QPaintEvent*) override {
        const QString shown = fontMetrics().elidedText(Fitting(), Qt::ElideRight, contentsRect().width());
        setToolTip(shown == text() ? QString() : text());
        if (isAllOrNothing_ && shown != text()) return;
        QPainter(this).drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
    }

private:
    QStringList shorter_;
    bool isAllOrNothing_ = false;
};

} // namespace pistaro
