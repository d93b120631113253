#include "ui/score_weights_box.h"

#include "ui/named_controls.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace pistaro {

namespace {

struct Part {
    const char* Name;
    const char* Tip;
    double ScoreParts::*Value;
    double ScoreWeights::*Weight;
};

constexpr std::array<Part, 11> AllParts{{
    {"Box used", "Share of the box's pieces", &ScoreParts::Used, &ScoreWeights::Used},
    {"Even lanes", "Both lanes are about equally long, as built", &ScoreParts::Lanes, &ScoreWeights::Lanes},
    {"Good straights", "The longest straight is a metre or more, and at most 40 % of the lap", &ScoreParts::Straights,
     &ScoreWeights::Straights},
    {"Many corners", "Corners of several kinds", &ScoreParts::Corners, &ScoreWeights::Corners},
    {"Both ways", "It turns to the left and to the right", &ScoreParts::Directions, &ScoreWeights::Directions},
    {"Starts straight", "It begins on a straight", &ScoreParts::Start, &ScoreWeights::Start},
    {"Off the walls", "It keeps its distance from the walls", &ScoreParts::Walls, &ScoreWeights::Walls},
    {"Long lap", "Much of the box's track is driven in a lap", &ScoreParts::Length, &ScoreWeights::Length},
    {"Fast straight", "One straight is a great part of the lap", &ScoreParts::Speed, &ScoreWeights::Speed},
    {"Winding", "It turns to and fro many times", &ScoreParts::Winding, &ScoreWeights::Winding},
    {"Like mine", "It looks like your design", &ScoreParts::Likeness, &ScoreWeights::Likeness}, // of variations alone
}};

struct Taste {
    const char* Name;
    const char* Caption;
    const char* Tip;
    ScoreWeights Weights;
};

const std::array<Taste, 5> AllTastes{{
    {"optAllRound", "All round", "Circuits that use most of the box, with something of everything", {}},
    {"optLongLaps", "Long laps", "Circuits that are long to drive", {.Used = 1, .Length = 10}},
    {"optFastStraights",
     "Fast straights",
     "Circuits with a long straight to let the car run",
     {.Used = 3, .Speed = 10}},
    {"optWinding",
     "Winding",
     "Circuits that turn to and fro, with many corners",
     {.Used = 3, .Straights = 0, .Corners = 3, .Winding = 10}},
    {"optLikeMine", "Like mine", "Circuits that look much like your design", {.Used = 3, .Likeness = 10}}, // likewise
}};

constexpr int StepsOfWeight = 10; ///< of a slider for a weight of 1
constexpr int MostWeight = 10;

/// The parts stand in two columns below a line of headings.
constexpr int Columns = 2;
constexpr int ColumnsOfPart = 5; ///< name, slider, weight, part, space

QString Hundredths(double part) { return QString::number(part, 'f', 2); }

QLabel* NewFigure(const char* name, int index) {
    auto* const figure = Named(new QLabel, name, index);
    figure->setMinimumWidth(figure->fontMetrics().horizontalAdvance("10.00"));
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return figure;
}

QLabel* NewHeading(const QString& text, const QString& tip) {
    auto* const heading = new QLabel(text);
    heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    heading->setToolTip(tip);
    return heading;
}

} // namespace

ScoreWeightsBox::ScoreWeightsBox(bool varied, std::function<void()> changed)
    : varied_(varied), changed_(std::move(changed)), lblScore_(NewFigure("lblScore", 0)),
      cmdFineTune_(Named(new QToolButton, "cmdFineTune")),
      cmdUsualWeights_(NewButton("cmdUsualWeights", "Usual &Weights")) {
    QWidget* const parts = Parts();
    parts->hide();
    cmdFineTune_->setText("Fine-Tune");
    cmdFineTune_->setToolTip("Say for each part of the score how much it counts");
    cmdFineTune_->setCheckable(true);
    connect(cmdFineTune_, &QToolButton::toggled, parts, &QWidget::setVisible);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(Tastes());
    column->addWidget(parts);
    Take(varied ? AllTastes.back().Weights : ScoreWeights());
}

/// What shall come first, in a word each.
QLayout* ScoreWeightsBox::Tastes() {
    auto* const row = new QHBoxLayout;
    row->addWidget(new QLabel("Best first:"));
    for (const Taste& taste : AllTastes) {
        if (&taste == &AllTastes.back() && !varied_) break;
        auto* const button = Named(new QRadioButton(taste.Caption), taste.Name);
        button->setAutoExclusive(false); // none stands for weights of the user's own
        button->setToolTip(taste.Tip);
        connect(button, &QRadioButton::clicked, this, [this, &taste] {
            Take(taste.Weights);
            changed_();
        });
        row->addWidget(button);
        tastes_.push_back(button);
    }
    row->addStretch();
    row->addWidget(cmdFineTune_);
    return row;
}

QWidget* ScoreWeightsBox::Parts() {
    auto* const parts = new QWidget;
    auto* const grid = new QGridLayout(parts);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    const std::size_t count = AllParts.size() - (varied_ ? 0 : 1);
    const int lines = static_cast<int>(count + 1) / Columns;
    for (std::size_t part = 0; part < count; ++part)
        AddPart(*grid, part, lines);
    for (const int first : {0, ColumnsOfPart}) {
        grid->addWidget(NewHeading("weight", "How much this counts, 0 to 10"), 0, first + 2);
        grid->addWidget(NewHeading("this one", "How the chosen circuit does in it, 0 to 1"), 0, first + 3);
        grid->setColumnStretch(first + 1, 1);
    }
    cmdUsualWeights_->setToolTip("Put all weights back to where they were at first");
    connect(cmdUsualWeights_, &QPushButton::clicked, this, [this] {
        Take({});
        changed_();
    });
    auto* const score = new QLabel("Score");
    score->setToolTip("How good the chosen circuit is by all of it, 0 to 1");
    grid->addWidget(cmdUsualWeights_, lines + 1, 0, 1, 2, Qt::AlignLeft);
    grid->addWidget(score, lines + 1, ColumnsOfPart);
    grid->addWidget(lblScore_, lines + 1, ColumnsOfPart + 3);
    grid->setColumnMinimumWidth(ColumnsOfPart - 1, 24);
    return parts;
}

void ScoreWeightsBox::AddPart(QGridLayout& grid, std::size_t part, int lines) {
    const int row = static_cast<int>(part);
    auto* const slider = Named(new QSlider(Qt::Horizontal), "sldWeight", row);
    slider->setRange(0, MostWeight * StepsOfWeight);
    slider->setToolTip(AllParts[part].Tip);
    slider->setAccessibleName(AllParts[part].Name);
    slider->setMinimumWidth(80);
    auto* const name = new QLabel(AllParts[part].Name);
    name->setToolTip(AllParts[part].Tip);
    sliders_.push_back(slider);
    weights_.push_back(NewFigure("lblWeight", row));
    parts_.push_back(NewFigure("lblPart", row));
    const int line = 1 + row % lines;
    int column = row / lines * ColumnsOfPart;
    for (QWidget* const control : {static_cast<QWidget*>(name), static_cast<QWidget*>(slider),
                                   static_cast<QWidget*>(weights_.back()), static_cast<QWidget*>(parts_.back())})
        grid.addWidget(control, line, column++);
    connect(slider, &QSlider::valueChanged, this, [this] {
        ShowWeights();
        changed_();
    });
}

void ScoreWeightsBox::ShowWeights() {
    const ScoreWeights weights = Weights();
    for (std::size_t part = 0; part < weights_.size(); ++part)
        weights_[part]->setText(QString::number(weights.*AllParts[part].Weight));
    for (std::size_t taste = 0; taste < tastes_.size(); ++taste)
        tastes_[taste]->setChecked(weights == AllTastes[taste].Weights);
    cmdUsualWeights_->setEnabled(weights != ScoreWeights());
}

void ScoreWeightsBox::Take(const ScoreWeights& weights) {
    for (std::size_t part = 0; part < sliders_.size(); ++part) {
        const QSignalBlocker together(sliders_[part]);
        sliders_[part]->setValue(static_cast<int>(weights.*AllParts[part].Weight * StepsOfWeight));
    }
    ShowWeights();
}

ScoreWeights ScoreWeightsBox::Weights() const {
    ScoreWeights weights;
    for (std::size_t i = 0; i < sliders_.size(); ++i)
        weights.*AllParts[i].Weight = static_cast<double>(sliders_[i]->value()) / StepsOfWeight;
    return weights;
}

void ScoreWeightsBox::Show(const std::optional<ScoreParts>& parts) {
    for (std::size_t i = 0; i < parts_.size(); ++i)
        parts_[i]->setText(parts ? Hundredths((*parts).*AllParts[i].Value) : QString());
    lblScore_->setText(parts ? Hundredths(Score(*parts, Weights())) : QString());
}

} // namespace pistaro
