#include "ui/score_weights_box.h"

#include "ui/named_controls.h"

#include <QSignalBlocker>

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

constexpr std::array<Part, 7> Parts{{
    {"Box used", "Share of the box's pieces", &ScoreParts::Used, &ScoreWeights::Used},
    {"Even lanes", "Both lanes are about equally long, as built", &ScoreParts::Lanes, &ScoreWeights::Lanes},
    {"Straights", "The longest straight is a metre or more, and at most 40 % of the lap", &ScoreParts::Straights,
     &ScoreWeights::Straights},
    {"Corners", "Corners of several kinds", &ScoreParts::Corners, &ScoreWeights::Corners},
    {"Both ways", "It turns to the left and to the right", &ScoreParts::Directions, &ScoreWeights::Directions},
    {"Start", "It begins on a straight", &ScoreParts::Start, &ScoreWeights::Start},
    {"Walls", "It keeps its distance from the walls", &ScoreParts::Walls, &ScoreWeights::Walls},
}};

constexpr int StepsOfWeight = 10; ///< of a slider for a weight of 1
constexpr int MostWeight = 10;

/// The parts stand in two columns below a line of headings, the score below the second.
constexpr int Lines = 4;
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

ScoreWeightsBox::ScoreWeightsBox(std::function<void()> changed)
    : QGroupBox("A good circuit"), changed_(std::move(changed)), lblScore_(NewFigure("lblScore", 0)),
      cmdUsualWeights_(NewButton("cmdUsualWeights", "Usual &Weights")) {
    auto* const grid = new QGridLayout(this);
    grid->setVerticalSpacing(2);
    for (std::size_t part = 0; part < Parts.size(); ++part)
        AddPart(*grid, part);
    for (const int first : {0, ColumnsOfPart}) {
        grid->addWidget(NewHeading("weight", "How much this counts, 0 to 10"), 0, first + 2);
        grid->addWidget(NewHeading("this one", "How the chosen circuit does in it, 0 to 1"), 0, first + 3);
        grid->setColumnStretch(first + 1, 1);
    }
    cmdUsualWeights_->setToolTip("Put all weights back to where they were at first");
    connect(cmdUsualWeights_, &QPushButton::clicked, this, [this] {
        ShowUsual();
        changed_();
    });
    grid->addWidget(new QLabel("Score"), Lines, ColumnsOfPart);
    grid->addWidget(cmdUsualWeights_, Lines, ColumnsOfPart + 1, 1, 2);
    grid->addWidget(lblScore_, Lines, ColumnsOfPart + 3);
    grid->setColumnMinimumWidth(ColumnsOfPart - 1, 24);
    ShowUsual();
}

void ScoreWeightsBox::AddPart(QGridLayout& grid, std::size_t part) {
    const int row = static_cast<int>(part);
    auto* const slider = Named(new QSlider(Qt::Horizontal), "sldWeight", row);
    slider->setRange(0, MostWeight * StepsOfWeight);
    slider->setToolTip(Parts[part].Tip);
    slider->setAccessibleName(Parts[part].Name);
    slider->setMinimumWidth(80);
    auto* const name = new QLabel(Parts[part].Name);
    name->setToolTip(Parts[part].Tip);
    sliders_.push_back(slider);
    weights_.push_back(NewFigure("lblWeight", row));
    parts_.push_back(NewFigure("lblPart", row));
    const int line = 1 + row % Lines;
    int column = row / Lines * ColumnsOfPart;
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
    for (std::size_t part = 0; part < Parts.size(); ++part)
        weights_[part]->setText(Hundredths(weights.*Parts[part].Weight));
    cmdUsualWeights_->setEnabled(weights != ScoreWeights());
}

void ScoreWeightsBox::ShowUsual() {
    const ScoreWeights usual;
    for (std::size_t part = 0; part < Parts.size(); ++part) {
        const QSignalBlocker together(sliders_[part]);
        sliders_[part]->setValue(static_cast<int>(usual.*Parts[part].Weight * StepsOfWeight));
    }
    ShowWeights();
}

ScoreWeights ScoreWeightsBox::Weights() const {
    ScoreWeights weights;
    for (std::size_t i = 0; i < Parts.size(); ++i)
        weights.*Parts[i].Weight = static_cast<double>(sliders_[i]->value()) / StepsOfWeight;
    return weights;
}

void ScoreWeightsBox::Show(const std::optional<ScoreParts>& parts) {
    for (std::size_t i = 0; i < Parts.size(); ++i)
        parts_[i]->setText(parts ? Hundredths((*parts).*Parts[i].Value) : QString());
    lblScore_->setText(parts ? Hundredths(Score(*parts, Weights())) : QString());
}

} // namespace pistaro
