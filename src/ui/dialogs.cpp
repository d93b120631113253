#include "ui/dialogs.h"

#include "editor/start_up.h"
#include "ui/frmBackground.h"
#include "ui/frmBuildPlan.h"
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
#include "ui/screen_fit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QStatusBar>

#include <memory>

namespace pistaro {

namespace {

/// Where it was when it was closed: some window managers would take its place for that of its frame.
void BringUp(QWidget& window) {
    const QPoint place = window.pos();
    const bool comesBack = !window.isVisible() && window.windowHandle() != nullptr;
    window.show();
    if (comesBack) window.move(place);
    window.raise();
    window.activateWindow();
}

/// Beside the window.
template <typename Dialog>
Dialog* Fitted(Dialog* dialog) {
    FitScreen(*dialog);
    return dialog;
}

} // namespace

void Dialogs::ShowRecovered() { ShowModally(frmRecovered(session_, frmRecovered::Occasion::Menu, &window_)); }

void Dialogs::ShowDrawArea() { ShowModally(frmDrawArea(session_, &window_)); }

void Dialogs::ShowColours() { ShowModally(frmColors(session_, &window_)); }

void Dialogs::ShowStatistics() { ShowModally(frmStats(session_, &window_)); }

void Dialogs::ShowSets() { ShowModally(frmSets(session_, &window_)); }

void Dialogs::ShowSamples() { ShowModally(frmSamples(session_, SampleFolder(), &window_)); }

void Dialogs::ShowBackground(const ScaledBackground& proposed) {
    ShowModally(frmBackground(session_, proposed, &window_));
}

void Dialogs::ShowPurchase(const PurchaseReport& report) { ShowModally(frmPurchase(session_, report, &window_)); }

void Dialogs::ShowExport() { ShowModally(frmExport(session_, &window_)); }

void Dialogs::ShowPrint() { ShowModally(frmPrint(session_, &window_)); }

void Dialogs::ShowBuildPlan() { ShowModally(frmBuildPlan(session_, &window_)); }

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

Dialogs::Dialogs(Session& session, QWidget& window, SuggestionBar& suggestions, BalanceBar& balance)
    : session_(session), window_(window), suggestions_(suggestions), balance_(balance) {
    const QClipboard* const clipboard = QGuiApplication::clipboard();
    QObject::connect(clipboard, &QClipboard::dataChanged, &window_, [this, clipboard] {
        clipboard_.reset();
        if (!clipboard->ownsClipboard()) session_.Copied = {}; // it is another program's now
    });
}

/// Asked of the system once after each change: it may have to wait for another program.
std::string Dialogs::ClipboardText() {
    constexpr qsizetype most = 100000; // characters; no list of pieces comes near it
    if (!clipboard_) clipboard_ = QGuiApplication::clipboard()->text().left(most).toStdString();
    return *clipboard_;
}

void Dialogs::TellBriefly(const std::string& text) {
    constexpr int milliseconds = 8000;
    if (auto* const bar = window_.findChild<QStatusBar*>()) bar->showMessage(Shown(text), milliseconds);
}

void Dialogs::ShowStock() {
    if (!stock_) {
        stock_ = Fitted(new frmStock(session_, &window_));
        stock_->setAttribute(Qt::WA_DeleteOnClose);
    }
    BringUp(*stock_);
}

void Dialogs::ShowBox() {
    if (!box_) box_ = Fitted(new frmBox(session_, std::nullopt, &window_));
    BringUp(*box_);
}

void Dialogs::ShowVariations() {
    if (!variations_ || !variations_->IsAboutTheDesign()) {
        delete variations_;
        variations_ = Fitted(new frmBox(session_, VariedTrack(session_), &window_));
    }
    BringUp(*variations_);
}

void Dialogs::ShowAbout() {
    if (!about_) about_ = new frmAbout(session_.Catalogue, &window_);
    BringUp(*about_);
}

} // namespace pistaro
