// The export dialog: the format, how large, and what of the circuit; what comes of it, before it is written.
#pragma once

#include "commands/export_commands.h"
#include "ui/drawn_parts_box.h"
#include "ui/sheet_preview.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>

namespace pistaro {

/// Modal. It begins with the format and the paper of the last time. Export asks for the file and closes when one was
/// written.
class frmExport : public QDialog {
public:
    explicit frmExport(Session& session, QWidget* parent = nullptr);

private:
    QGroupBox* SizeFrame();
    QLayout* PreviewColumn();
    QLayout* Buttons();
    ExportFormat Format() const;
    ExportOptions Chosen() const;
    /// Enables what the format has a use for.
    void FollowFormat();
    void FollowSize();
    /// Shows what the fields come to, or tells why that cannot be.
    void PlanAgain();
    /// How large the file's drawing is, or how long its table. Fault: it cannot be written so.
    QString PlannedText();
    void Export();

    Session& session_;
    QComboBox *cboFormat_ = nullptr, *cboSize_ = nullptr, *cboPaper_ = nullptr;
    QDoubleSpinBox* spnScale_ = nullptr;
    QSpinBox *spnDots_ = nullptr, *spnWidth_ = nullptr;
    QGroupBox* fraSize_ = nullptr;
    DrawnPartsBox* parts_ = nullptr;
    std::optional<PlannedSheets> sheets_;
    SheetPreview* picSheet_ = nullptr;
    QLabel* lblPlanned_ = nullptr;
    QPushButton* cmdExport_ = nullptr;
};

} // namespace pistaro
