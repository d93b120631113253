// A circuit large, with its figures below.
#pragma once

#include "commands/found_figures.h"
#include "ui/design_picture.h"

#include <QGridLayout>
#include <QLabel>
#include <QWidget>

#include <utility>
#include <vector>

namespace pistaro {

class CircuitPreview : public QWidget {
public:
    explicit CircuitPreview(Session& session);

    void Show(const Design& design, const MarkedPieces& marked, const std::vector<CircuitFigure>& figures);

    /// Says in the picture's place why there is none.
    void ShowNone(const QString& why);

private:
    void ShowFigures(const std::vector<CircuitFigure>& figures);

    DesignPicture* const picture_;
    QGridLayout* const grid_;
    std::vector<std::pair<QLabel*, QLabel*>> figures_; ///< names and values
};

} // namespace pistaro
