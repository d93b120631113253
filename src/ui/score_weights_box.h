// What a good circuit is: what shall come first in a word, and folded away a slider for each part of the score.
#pragma once

#include "search/circuit_score.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>

#include <functional>
#include <optional>
#include <vector>

namespace pistaro {

class ScoreWeightsBox : public QGroupBox {
public:
    /// `varied`: what is much like the design can come first, and does at the beginning. `changed` is called when
    /// something else shall come first.
    ScoreWeightsBox(bool varied, std::function<void()> changed);

    ScoreWeights Weights() const;

    /// Shows the parts of a circuit's score and the whole; nothing for none.
    void Show(const std::optional<ScoreParts>& parts);

private:
    QLayout* Tastes();
    QWidget* Parts();
    void AddPart(QGridLayout& grid, std::size_t part, int lines);
    void Take(const ScoreWeights& weights);
    void ShowWeights();

    const bool varied_;
    const std::function<void()> changed_;
    std::vector<QRadioButton*> tastes_;
    std::vector<QSlider*> sliders_;
    std::vector<QLabel*> weights_, parts_;
    QLabel* const lblScore_;
    QToolButton* const cmdFineTune_;
    QPushButton* const cmdUsualWeights_;
};

} // namespace pistaro
