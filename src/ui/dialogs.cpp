#include "ui/dialogs.h"

#include "ui/frmColors.h"
#include "ui/frmDrawArea.h"
#include "ui/frmRecovered.h"
#include "ui/frmStats.h"

namespace pistaro {

namespace {

void BringUp(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

void Dialogs::ShowRecovered() { frmRecovered(session_, frmRecovered::Occasion::Menu, &window_).exec(); }

void Dialogs::ShowDrawArea() { frmDrawArea(session_, &window_).exec(); }

void Dialogs::ShowColours() { frmColors(session_, &window_).exec(); }

void Dialogs::ShowStatistics() { frmStats(session_, &window_).exec(); }

void Dialogs::ShowStock() {
    if (!stock_) {
        stock_ = new frmStock(session_, &window_);
        stock_->setAttribute(Qt::WA_DeleteOnClose);
    }
    BringUp(*stock_);
}

void Dialogs::ShowAbout() {
    if (!about_) about_ = new frmAbout(session_.Catalogue, &window_);
    BringUp(*about_);
}

} // namespace pistaro
