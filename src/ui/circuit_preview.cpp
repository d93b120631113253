#include "ui/circuit_preview.h"

#include "ui/named_controls.h"

#include <QMouseEvent>
#include <QPainter>
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

/// Drawn anew for each size that it gets.
class CircuitPreview::Picture : public QWidget {
public:
    explicit Picture(Session& session) : session_(session) {
        setObjectName("picChosen");
        setAccessibleName("The chosen circuit");
        constexpr int least = 180;
        setMinimumSize(least, HeightOf(least));
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }

    int heightForWidth(int width) const override { return HeightOf(width); }

    void Show(std::optional<Design> design, const MarkedPieces& marked, const QString& instead) {
        design_ = std::move(design);
        marked_ = marked;
        instead_ = instead;
        drawn_ = {};
        update();
    }

    std::function<void(WorldPoint, bool)> Pressed; ///< empty where nothing can be chosen

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (!Pressed || !design_ || event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
        Pressed(GroundAt(event->position(), session_.Catalogue, *design_, size()),
                event->modifiers().testFlag(Qt::ShiftModifier));
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (!design_) {
            painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, instead_);
            return;
        }
        const qreal ratio = devicePixelRatioF();
        if (drawn_.isNull() || drawn_.deviceIndependentSize() != QSizeF(size()) || drawn_.devicePixelRatioF() != ratio)
            drawn_ = WorkPicture(session_.Catalogue, *design_, session_.Project.Preferences, size(), ratio, marked_);
        painter.drawImage(QPointF(0, 0), drawn_);
    }

    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) drawn_ = {};
    }

private:
    /// As most rooms are.
    static int HeightOf(int width) { return width * 3 / 4; }

    Session& session_;
    std::optional<Design> design_;
    MarkedPieces marked_;
    QString instead_;
    QImage drawn_;
};

CircuitPreview::CircuitPreview(Session& session) : picture_(new Picture(session)), grid_(new QGridLayout) {
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
    picture_->Pressed = nullptr;
    picture_->unsetCursor();
    picture_->Show(design, marked, {});
    ShowFigures(figures);
}

void CircuitPreview::ShowToChooseFrom(const Design& design, const MarkedPieces& marked,
                                      const std::vector<CircuitFigure>& figures) {
    Show(design, marked, figures);
    picture_->Pressed = Pressed;
    picture_->setCursor(Qt::PointingHandCursor);
}

void CircuitPreview::ShowNone(const QString& why) {
    picture_->Pressed = nullptr;
    picture_->unsetCursor();
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
