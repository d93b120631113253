#include "ui/frmHistory.h"

#include "ui/named_controls.h"

#include <QLabel>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr QSize UsualSize(260, 420);

} // namespace

int HistoryLines::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return static_cast<int>(std::max<std::size_t>(1, session_.History().Count())); // the start alone, before any step
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
    endResetModel();
}

frmHistory::frmHistory(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), lines_(new HistoryLines(session, this)),
      lstHistory_(Named(new QListView, "lstHistory")) {
    setObjectName("frmHistory");
    setWindowTitle("History");
    lstHistory_->setModel(lines_);
    lstHistory_->setAccessibleName("Steps");
    lstHistory_->setUniformItemSizes(true);
    lstHistory_->setToolTip("Click a step to go back to it, or forward");
    connect(lstHistory_, &QListView::clicked, this, [this](const QModelIndex& line) { GoTo(line); });
    connect(lstHistory_, &QListView::activated, this, [this](const QModelIndex& line) { GoTo(line); });
    auto* const column = new QVBoxLayout(this);
    column->addWidget(lstHistory_);
    resize(UsualSize);
    observation_ = session.Observe([this](const Changes&) {
        if (isVisible()) Refresh();
    });
}

/// Beside the main window where there is room, else over its right end: the drawing stays in sight.
void frmHistory::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        Refresh();
        const QRect owner = parentWidget()->frameGeometry();
        const QRect all = parentWidget()->screen()->availableGeometry();
        move(std::min(owner.right() + 1, all.right() - frameGeometry().width()), std::max(owner.top(), all.top()));
    }
    QDialog::showEvent(event);
}

void frmHistory::Refresh() {
    lines_->Refresh();
    const QModelIndex present = lines_->index(static_cast<int>(session_.History().Present()));
    lstHistory_->setCurrentIndex(present);
    lstHistory_->scrollTo(present);
}

void frmHistory::GoTo(const QModelIndex& line) {
    const auto state = static_cast<std::size_t>(line.row());
    if (state < session_.History().Count() && state != session_.History().Present()) session_.GoTo(state);
}

} // namespace pistaro
