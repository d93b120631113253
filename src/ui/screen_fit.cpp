#include "ui/screen_fit.h"

#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace pistaro {

namespace {

constexpr QSize WindowFrame(8, 40); ///< with the title bar

/// The smallest size of a dialog at which nothing of it is cut.
QSize LeastSize(const QDialog& dialog) {
    QLayout& layout = *dialog.layout();
    layout.activate();
    const bool isFixed = layout.sizeConstraint() == QLayout::SetFixedSize;
    return (isFixed ? layout.totalSizeHint() : layout.totalMinimumSize()).expandedTo(dialog.minimumSize());
}

/// The row of buttons that a dialog ends with, out of its layout; null where there is none.
QLayout* TakeButtons(QLayout& layout) {
    const int last = layout.count() - 1;
    const bool hasButtons = qobject_cast<QVBoxLayout*>(&layout) != nullptr && layout.itemAt(last)->layout() != nullptr;
    return hasButtons ? layout.takeAt(last)->layout() : nullptr;
}

} // namespace

void FitInto(QDialog& dialog, QSize room) {
    const QSize least = LeastSize(dialog);
    if (least.boundedTo(room) == least) {
        const bool hasSize = dialog.testAttribute(Qt::WA_Resized);
        if (hasSize) dialog.resize(dialog.size().boundedTo(room));
        return;
    }
    QLayout* const buttons = TakeButtons(*dialog.layout());
    auto* const content = new QWidget;
    content->setLayout(dialog.layout()); // which takes the controls along
    dialog.setMinimumSize(0, 0);
    dialog.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    auto* const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(content);
    auto* const whole = new QVBoxLayout(&dialog);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(area);
    if (buttons != nullptr) {
        const QMargins margins = content->layout()->contentsMargins();
        buttons->setContentsMargins(margins.left(), 0, margins.right(), margins.bottom());
        whole->addLayout(buttons);
    }
    const QSize bars(area->verticalScrollBar()->sizeHint().width(), area->horizontalScrollBar()->sizeHint().height());
    dialog.resize((least + bars).boundedTo(room));
}

void FitScreen(QDialog& dialog) { FitInto(dialog, dialog.screen()->availableSize() - WindowFrame); }

void ShowModally(QDialog&& dialog) {
    FitScreen(dialog);
    dialog.exec();
}

} // namespace pistaro
