#include "ui/history_dock.h"

#include "ui/named_controls.h"

#include <QShowEvent>
#include <QTimer>

#include <algorithm>

namespace pistaro {

namespace {

/// A narrow list, which leaves the drawing its width.
class StepList : public QListView {
public:
    QSize sizeHint() const override {
        constexpr int letters = 22; // "Replace C160 by C8007"
        return {letters * fontMetrics().averageCharWidth() + 2 * fontMetrics().height(),
                QListView::sizeHint().height()};
    }
};

} // namespace

int HistoryLines::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return lines_;
}

QVariant HistoryLines::data(const QModelIndex& index, int role) const {
    const History& history = session_.History();
    const auto state = static_cast<std::size_t>(index.row());
    switch (role) {
    case Qt::DisplayRole: {
        const std::string caption = state < history.Count() ? history.Caption(state) : "";
        return caption.empty() ? QString("Start") : Shown(caption);
    }
    case Qt::FontRole: {
        QFont font;
        font.setBold(state == history.Present());
        return font;
    }
    case Qt::ForegroundRole:
        return state > history.Present() ? QVariant(QPalette().brush(QPalette::PlaceholderText)) : QVariant();
    default:
        return {};
    }
}

void HistoryLines::Refresh() {
    beginResetModel();
    lines_ = static_cast<int>(std::max<std::size_t>(1, session_.History().Count())); // the start alone, before any step
    endResetModel();
}

HistoryDock::HistoryDock(Session& session)
    : QDockWidget("History"), session_(session), lines_(new HistoryLines(session, this)),
      lstHistory_(Named(new StepList, "lstHistory")) {
    setObjectName("fraHistory");
    lstHistory_->setModel(lines_);
    lstHistory_->setAccessibleName("Steps");
    lstHistory_->setUniformItemSizes(true);
    lstHistory_->setToolTip("Click a step to go back to it, or forward");
    connect(lstHistory_, &QListView::clicked, this, [this](const QModelIndex& line) { GoTo(line); });
    connect(lstHistory_, &QListView::activated, this, [this](const QModelIndex& line) { GoTo(line); });
    setWidget(lstHistory_);
}

void HistoryDock::Refresh() {
    if (!isVisible() || waiting_) return;
    waiting_ = true;
    QTimer::singleShot(0, this, [this] {
        waiting_ = false;
        if (isVisible()) ShowSteps();
    });
}

void HistoryDock::showEvent(QShowEvent* event) {
    QDockWidget::showEvent(event);
    ShowSteps();
}

void HistoryDock::ShowSteps() {
    lines_->Refresh();
    const QModelIndex present = lines_->index(static_cast<int>(session_.History().Present()));
    lstHistory_->setCurrentIndex(present);
    lstHistory_->scrollTo(present);
}

void HistoryDock::GoTo(const QModelIndex& line) {
    const auto state = static_cast<std::size_t>(line.row());
    if (state < session_.History().Count() && state != session_.History().Present()) session_.GoTo(state);
}

} // namespace pistaro
