// The build plan dialog: as a page or on which paper, of which tracks; its first pages before it is written.
#pragma once

#include "commands/build_plan_commands.h"
#include "imaging/build_plan_preview.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

namespace pistaro {

/// Modal. It begins with the format and the paper of the last time. Write asks for the file, writes it and
/// shows it; the dialog stays.
class frmBuildPlan : public QDialog {
public:
    explicit frmBuildPlan(Session& session, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* ChoiceFrame();
    QLayout* PreviewColumn();
    QLayout* PageRow();
    QLayout* Buttons();
    PlanFormat Format() const;
    PaperSize Paper() const;
    /// Makes the plan of what is chosen, and shows its first page.
    void PlanAgain();
    /// Draws the pages as large as there is room for, which may have changed.
    void DrawPages();
    void ShowPage(int page);
    void Write();

    Session& session_;
    BuildPlan plan_;
    PlanPreview preview_;
    int page_ = 0;   ///< that is shown, from 0
    QTimer resized_; ///< since the last change of size
    QComboBox *cboFormat_ = nullptr, *cboPaper_ = nullptr, *cboTrack_ = nullptr;
    QLabel *lblFormat_ = nullptr, *lblFacts_ = nullptr, *picPage_ = nullptr, *lblPage_ = nullptr;
    QToolButton *cmdPrevious_ = nullptr, *cmdNext_ = nullptr;
};

} // namespace pistaro
