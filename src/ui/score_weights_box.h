// What a good circuit is: a slider for each part of the score, and how the chosen circuit does in it.
#pragma once

#include "search/circuit_score.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include <functional>
#include <optional>
#include <vector>

namespace pistaro {

class ScoreWeightsBox : public QGroupBox {
public:
    /// `changed` is called when a weight was moved.
    explicit ScoreWeightsBox(std::function<void()> changed);

    ScoreWeights Weights() const;

    /// Shows the parts of a circuit's score and the whole; nothing for none.
    void Show(const std::optional<ScoreParts>& parts);

private:
    void AddPart(QGridLayout& grid, std::size_t part);
    void ShowWeights();
    void ShowUsual();

    const std::function<void()> changed_;
    std::vector<QSlider*> sliders_;
    std::vector<QLabel*> weights_, parts_;
    QLabel* const lblScore_;
    QPushButton* const cmdUsualWeights_;
};

} // namespace pistaro
