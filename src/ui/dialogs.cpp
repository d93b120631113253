#include "ui/dialogs.h"

#include "editor/start_up.h"
#include "ui/frmBackground.h"
#include "ui/frmColors.h"
#include "ui/frmDrawArea.h"
#include "ui/frmExport.h"
#include "ui/frmPrint.h"
#include "ui/frmPurchase.h"
#include "ui/frmRecovered.h"
#include "ui/frmSamples.h"
#include "ui/frmSets.h"
#include "ui/frmStats.h"
#include "ui/named_controls.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QStatusBar>

#include <memory>

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

void Dialogs::ShowSets() { frmSets(session_, &window_).exec(); }

void Dialogs::ShowSamples() { frmSamples(session_, SampleFolder(), &window_).exec(); }

void Dialogs::ShowBackground(const ScaledBackground& proposed) { frmBackground(session_, proposed, &window_).exec(); }

void Dialogs::ShowPurchase(const PurchaseReport& report) { frmPurchase(session_, report, &window_).exec(); }

void Dialogs::ShowExport() { frmExport(session_, &window_).exec(); }

void Dialogs::ShowPrint() { frmPrint(session_, &window_).exec(); }

void Dialogs::PutOnClipboard(const Clipping& clipping) {
    auto data = std::make_unique<QMimeData>();
    if (!clipping.Text.empty()) data->setText(Shown(clipping.Text));
    if (!clipping.Svg.empty()) data->setData("image/svg+xml", QByteArray::fromStdString(clipping.Svg));
    if (!clipping.Png.empty()) {
        const QByteArray png = QByteArray::fromStdString(clipping.Png);
        data->setData("image/png", png);
        data->setImageData(QImage::fromData(png));
    }
    QGuiApplication::clipboard()->setMimeData(data.release()); // which owns it
}

std::string Dialogs::ClipboardText() { return QGuiApplication::clipboard()->text().toStdString(); }

void Dialogs::TellBriefly(const std::string& text) {
    constexpr int milliseconds = 8000;
    if (auto* const bar = window_.findChild<QStatusBar*>()) bar->showMessage(Shown(text), milliseconds);
}

void Dialogs::ShowStock() {
    if (!stock_) {
        stock_ = new frmStock(session_, &window_);
        stock_->setAttribute(Qt::WA_DeleteOnClose);
    }
    BringUp(*stock_);
}

void Dialogs::ShowBox() {
    if (!box_) box_ = new frmBox(session_, frmBox::Purpose::Box, &window_);
    BringUp(*box_);
}

void Dialogs::ShowVariations() {
    if (!variations_ || !variations_->IsAboutTheDesign()) {
        delete variations_;
        variations_ = new frmBox(session_, frmBox::Purpose::Variations, &window_);
    }
    BringUp(*variations_);
}

void Dialogs::ShowAbout() {
    if (!about_) about_ = new frmAbout(session_.Catalogue, &window_);
    BringUp(*about_);
}

} // namespace pistaro
