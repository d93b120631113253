#include "ui/circuit_preview.h"

#include "ui/named_controls.h"

#include <QRegularExpression>
#include <QVBoxLayout>

namespace pistaro {

namespace {

/// No line ends between a figure and what it counts.
QString Unbroken(QString text) {
    static const QRegularExpression within("(?<=[0-9]) (?=[cm×])|(?<=×) ");
    return text.replace(within, "\u00a0");
}

} // namespace

CircuitPreview::CircuitPreview(Session& session)
    : picture_(new DesignPicture(session, "picChosen", "The chosen circuit")), grid_(new QGridLayout) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(picture_);
    column->addLayout(grid_);
    column->addStretch(1);
    grid_->setColumnStretch(1, 1);
    grid_->setVerticalSpacing(2);
    constexpr int betweenColumns = 12;
    grid_->setHorizontalSpacing(betweenColumns);
}

void CircuitPreview::Show(const Design& design, const MarkedPieces& marked, const std::vector<CircuitFigure>& figures) {
    picture_->Show(design, marked, {});
    ShowFigures(figures);
}

void CircuitPreview::ShowNone(const QString& why) {
    picture_->Show(std::nullopt, {}, why);
    ShowFigures({});
}

void CircuitPreview::ShowFigures(const std::vector<CircuitFigure>& figures) {
    for (std::size_t i = figures_.size(); i < figures.size(); ++i) {
        const int row = static_cast<int>(i);
        auto* const name = Named(new QLabel, "lblFigureName", row);
        auto* const value = Named(new QLabel, "lblFigure", row);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid_->addWidget(name, row, 0, Qt::AlignTop);
        grid_->addWidget(value, row, 1);
        figures_.emplace_back(name, value);
    }
    for (std::size_t i = 0; i < figures_.size(); ++i) {
        const bool isThere = i < figures.size();
        figures_[i].first->setText(isThere ? Shown(figures[i].Name) : QString());
        figures_[i].second->setText(isThere ? Unbroken(Shown(figures[i].Value)) : QString());
    }
}

} // namespace pistaro
