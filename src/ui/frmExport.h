// The export dialog: the format, how large, and what of the circuit; what comes of it, before it is written.
#pragma once

#include "commands/export_commands.h"
#include "ui/drawn_parts_box.h"
#include "ui/sheet_preview.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QStackedWidget>

namespace pistaro {

/// Modal. It begins with what was chosen the last time, at first with what the window shows.
/// Export asks for the file, writes it and tells of it; the dialog stays for the next one.
class frmExport : public QDialog {
public:
    explicit frmExport(Session& session, QWidget* parent = nullptr);

private:
    QGroupBox* FormatFrame();
    QGroupBox* SizeFrame();
    QLayout* PreviewColumn();
    /// What the user chose the last time stands there again.
    void BeginAsLastTime();
    QLayout* Buttons();
    ExportFormat Format() const;
    ExportOptions Chosen() const;
    /// Shows and enables what the format has a use for.
    void FollowFormat();
    void FollowSize();
    /// Or hides and disables it.
    void ShowRow(QWidget* field, bool shown);
    /// Shows what the fields come to, or tells why that cannot be.
    void PlanAgain();
    /// Shows the first lines of a file of text. Fault: it cannot be written.
    void ShowLines();
    /// How large the file's drawing is, or how long its table. Fault: it cannot be written so.
    QString PlannedText();
    /// Offers what comes nearest to the fields where they cannot be met.
    void OfferPossible();
    void TakePossible();
    /// A scale that works in place of one that was not chosen.
    void BeginWithAScale();
    void Export();
    /// Another format with the same way to choose its size, where it offers that.
    void ChangeFormat(ExportFormat format);
    /// What was chosen stands there the next time.
    void Remember();

    Session& session_;
    QComboBox *cboFormat_ = nullptr, *cboSize_ = nullptr, *cboPaper_ = nullptr;
    QDoubleSpinBox* spnScale_ = nullptr;
    QSpinBox *spnDots_ = nullptr, *spnWidth_ = nullptr;
    QCheckBox* chkWalls_ = nullptr;
    QFormLayout* sizeRows_ = nullptr;
    DrawnPartsBox* parts_ = nullptr;
    std::optional<PlannedSheets> sheets_;
    SheetPreview* picSheet_ = nullptr;
    QPlainTextEdit* txtLines_ = nullptr; ///< in the preview's place where there is no drawing
    QStackedWidget* views_ = nullptr;    ///< the preview, and the lines
    QLabel *lblPurpose_ = nullptr, *lblPlanned_ = nullptr, *lblNoSize_ = nullptr;
    QPushButton *cmdExport_ = nullptr, *cmdPossible_ = nullptr;
    double firstScale_ = 10;                ///< the N of 1:N that is proposed where it works: that of the last time
    bool hasChosenScale_ = false;           ///< its user, since the dialog came up
    std::optional<ExportOptions> possible_; ///< what would work, where the fields do not
};

} // namespace pistaro
