// The export dialog: the format, how large, and what of the circuit.
#pragma once

#include "commands/export_commands.h"
#include "ui/drawn_parts_box.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QSpinBox>

namespace pistaro {

/// Modal. Export asks for the file and closes when one was written.
class frmExport : public QDialog {
public:
    explicit frmExport(Session& session, QWidget* parent = nullptr);

private:
    QGroupBox* SizeFrame();
    QLayout* Buttons();
    ExportFormat Format() const;
    ExportOptions Chosen() const;
    /// Enables what the format has a use for.
    void FollowFormat();

    Session& session_;
    QComboBox *cboFormat_ = nullptr, *cboSize_ = nullptr, *cboPaper_ = nullptr;
    QDoubleSpinBox* spnScale_ = nullptr;
    QSpinBox *spnDots_ = nullptr, *spnWidth_ = nullptr;
    QGroupBox* fraSize_ = nullptr;
    DrawnPartsBox* parts_ = nullptr;
};

} // namespace pistaro
