// A circuit large, with its figures below.
#pragma once

#include "commands/found_figures.h"
#include "ui/work_picture.h"

#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QWidget>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace pistaro {

class CircuitPreview : public QWidget {
public:
    explicit CircuitPreview(Session& session);

    /// Called with the place of the ground where a picture of what can be chosen from is pressed, and whether with
    /// Shift.
    std::function<void(WorldPoint, bool)> Pressed;

    void Show(const Design& design, const MarkedPieces& marked, const std::vector<CircuitFigure>& figures);

    /// Likewise a design whose pieces can be chosen.
    void ShowToChooseFrom(const Design& design, const MarkedPieces& marked, const std::vector<CircuitFigure>& figures);

    /// Says in the picture's place why there is none.
    void ShowNone(const QString& why);

private:
    class Picture;

    void ShowFigures(const std::vector<CircuitFigure>& figures);

    Picture* const picture_;
    QGridLayout* const grid_;
    std::vector<std::pair<QLabel*, QLabel*>> figures_; ///< names and values
};

} // namespace pistaro
