// The statistics: lengths, prices and counts of each track and of the circuit, and what is to buy.
#pragma once

#include "model/project.h"
#include "model/prompts.h"
#include "stats/detail.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>

#include <array>

class QGroupBox;

namespace pistaro {

/// Modal. Measures once, when it is made: the design checks are told before it is shown. Fault when a sum overflows.
class frmStats : public QDialog {
public:
    frmStats(const Project& project, Prompts& prompts, QWidget* parent = nullptr);

private:
    QWidget* Frames();
    QWidget* DetailArea();
    QLayout* Products();
    QLayout* Price();
    QLayout* Buttons();
    void ShowDetailOf(int track);

    const Project& project_;
    Prompts& prompts_;
    Detail detail_; ///< as shown: ticking the box changes nothing before the next press of a Detail button
    QGroupBox* fraDetail_ = nullptr;
    std::array<QLabel*, CountLabels.size()> lblDescript_{};
    std::array<QLabel*, CountLabels.size()> lblEnum_{};
    QLabel* lblTotPrice_ = nullptr;
    QCheckBox* chkInclude_ = nullptr;
};

} // namespace pistaro
