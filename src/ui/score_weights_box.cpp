#include "ui/score_weights_box.h"

#include "ui/named_controls.h"

#include <QGridLayout>

#include <array>

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

/// The parts stand in two columns, the score below the second.
constexpr int Lines = 4;
constexpr int ColumnsOfPart = 4; ///< name, slider, part, space

QString Hundredths(double part) { return QString::number(part, 'f', 2); }

} // namespace

ScoreWeightsBox::ScoreWeightsBox(const std::function<void()>& changed)
    : QGroupBox("A good circuit"), lblScore_(Named(new QLabel, "lblScore")) {
    auto* const grid = new QGridLayout(this);
    const ScoreWeights usual;
    for (std::size_t i = 0; i < Parts.size(); ++i) {
        const int row = static_cast<int>(i);
        auto* const slider = Named(new QSlider(Qt::Horizontal), "sldWeight", row);
        slider->setRange(0, MostWeight * StepsOfWeight);
        slider->setValue(static_cast<int>(usual.*Parts[i].Weight * StepsOfWeight));
        slider->setToolTip(Parts[i].Tip);
        slider->setAccessibleName(Parts[i].Name);
        slider->setMinimumWidth(80);
        auto* const name = new QLabel(Parts[i].Name);
        name->setToolTip(Parts[i].Tip);
        auto* const part = Named(new QLabel, "lblPart", row);
        part->setMinimumWidth(part->fontMetrics().horizontalAdvance("0.00"));
        part->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        const int line = row % Lines;
        const int column = row / Lines * ColumnsOfPart;
        grid->addWidget(name, line, column);
        grid->addWidget(slider, line, column + 1);
        grid->addWidget(part, line, column + 2);
        connect(slider, &QSlider::valueChanged, this, changed);
        sliders_.push_back(slider);
        parts_.push_back(part);
    }
    lblScore_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(new QLabel("Score"), Lines - 1, ColumnsOfPart);
    grid->addWidget(lblScore_, Lines - 1, ColumnsOfPart + 2);
    for (const int column : {1, ColumnsOfPart + 1})
        grid->setColumnStretch(column, 1);
    grid->setColumnMinimumWidth(ColumnsOfPart - 1, 24);
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
