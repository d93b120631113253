// The slim handle at a side of the drawing, which folds the column beyond it away and unfolds it.
#pragma once

#include <QToolButton>

namespace pistaro {

class FoldHandle : public QToolButton {
public:
    /// The column lies to the left of the handle, or to its right.
    explicit FoldHandle(Qt::Edge side);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Qt::Edge side_;
};

} // namespace pistaro
