// The print dialog: paper, how large, what of the circuit; a preview of every sheet, and how many there are.
#pragma once

#include "commands/export_commands.h"
#include "ui/drawn_parts_box.h"
#include "ui/sheet_preview.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QToolButton>

#include <optional>

class QPrinter;

namespace pistaro {

/// Modal. Print asks for the printer and closes when the sheets are out; a PDF is written and told of, and the dialog
/// stays.
class frmPrint : public QDialog {
public:
    explicit frmPrint(Session& session, QWidget* parent = nullptr);

    /// The sheets as they would be printed; none when they cannot be.
    const std::optional<PlannedSheets>& Planned() const { return sheets_; }

private:
    QGroupBox* PaperFrame();
    void AddSizeRows(QFormLayout& form);
    void BeginAsLastTime();
    QLayout* PreviewColumn();
    QLayout* Buttons();
    SheetOptions Chosen() const;
    /// Lays the sheets out as the fields say, or tells why that cannot be.
    void PlanAgain();
    void ShowSheet();
    /// Whether so many sheets are wanted: asks where they are many.
    bool WantsSheets() const;
    void Print();
    /// What was chosen stands there the next time.
    void Remember();

    Session& session_;
    const std::string date_; ///< as it stands in the headers
    std::optional<PlannedSheets> sheets_;
    QComboBox *cboPaper_ = nullptr, *cboOrientation_ = nullptr;
    QRadioButton *optFit_ = nullptr, *optScale_ = nullptr;
    QDoubleSpinBox* spnScale_ = nullptr;
    QCheckBox *chkRound_ = nullptr, *chkWalls_ = nullptr;
    QSpinBox* spnSheet_ = nullptr;
    QLabel *lblSheets_ = nullptr, *lblShown_ = nullptr;
    SheetPreview* picSheet_ = nullptr;
    QToolButton *cmdPrevious_ = nullptr, *cmdNext_ = nullptr;
    QPushButton *cmdPrint_ = nullptr, *cmdPdf_ = nullptr;
    DrawnPartsBox* parts_ = nullptr;
};

/// Prints all sheets, to the printer's whole paper.
void PrintSheets(const PlannedSheets& sheets, const std::string& date, QPrinter& printer);

} // namespace pistaro
