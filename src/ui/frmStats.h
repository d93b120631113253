// The statistics: lengths, prices and counts of each track and of the circuit, and what is to buy.
#pragma once

#include "commands/session.h"
#include "stats/detail.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>

#include <vector>

class QGroupBox;

namespace pistaro {

/// Modal. Measures once, when it is made: the design checks are told before it is shown. Fault when a sum overflows.
class frmStats : public QDialog {
public:
    explicit frmStats(Session& session, QWidget* parent = nullptr);

private:
    QWidget* Frames();
    QWidget* DetailArea();
    QLayout* Products();
    QLayout* Price();
    QLayout* Buttons();
    void ShowDetailOf(int track);

    Session& session_;
    Detail detail_; ///< as shown: ticking the box changes nothing before the next press of a Detail button
    QGroupBox* fraDetail_ = nullptr;
    std::vector<QLabel*> lblDescript_, lblEnum_; ///< in the order of the detail's labels
    QLabel* lblTotPrice_ = nullptr;
    QCheckBox* chkInclude_ = nullptr;
};

} // namespace pistaro
