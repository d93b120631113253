// The print dialog: paper, how large, what of the circuit; a preview of every sheet, and how many there are.
#pragma once

#include "commands/export_commands.h"
#include "imaging/sheet_painter.h"
#include "ui/drawn_parts_box.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

#include <optional>

class QPrinter;

namespace pistaro {

/// Modal. Print asks for the printer, PDF for a file; both close the dialog when the sheets are out.
class frmPrint : public QDialog {
public:
    explicit frmPrint(Session& session, QWidget* parent = nullptr);

    /// The sheets as they would be printed; none when they cannot be.
    struct Sheets {
        CircuitDrawing Drawing;
        SheetPlan Plan;
    };
    const std::optional<Sheets>& Planned() const { return sheets_; }
    /// The sheet that the preview shows, from 0.
    int ShownSheet() const { return spnSheet_->value() - 1; }
    std::string Date() const;

private:
    QGroupBox* PaperFrame();
    QLayout* PreviewColumn();
    QLayout* Buttons();
    SheetOptions Chosen() const;
    /// Lays the sheets out as the fields say, or tells why that cannot be.
    void PlanAgain();
    void Print();

    Session& session_;
    std::optional<Sheets> sheets_;
    QComboBox *cboPaper_ = nullptr, *cboOrientation_ = nullptr;
    QRadioButton *optFit_ = nullptr, *optScale_ = nullptr;
    QDoubleSpinBox* spnScale_ = nullptr;
    QSpinBox* spnSheet_ = nullptr;
    QLabel* lblSheets_ = nullptr;
    QWidget* picSheet_ = nullptr;
    QPushButton *cmdPrint_ = nullptr, *cmdPdf_ = nullptr;
    DrawnPartsBox* parts_ = nullptr;
};

/// Prints all sheets, to the printer's whole paper.
void PrintSheets(const frmPrint::Sheets& sheets, const std::string& date, QPrinter& printer);

} // namespace pistaro
