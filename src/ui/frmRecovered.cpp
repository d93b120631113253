#include "ui/frmRecovered.h"

#include "commands/recovery_commands.h"
#include "ui/named_controls.h"
#include "ui/work_picture.h"

#include <QDateTime>
#include <QLocale>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int PictureSide = 128;

QString Description(const RecoveredWork& work) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(work.Written.time_since_epoch()).count();
    const QString time = QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
    const QString pieces = !work.Content        ? QString("damaged, cannot be opened")
                           : work.Pieces() == 1 ? QString("1 piece")
                                                : QString("%1 pieces").arg(work.Pieces());
    return QString("%1\n%2\n%3").arg(Shown(work.Name.Design), pieces, time);
}

} // namespace

frmRecovered::frmRecovered(Session& session, Occasion occasion, QWidget* parent)
    : QDialog(parent), session_(session), occasion_(occasion), lblExplain_(Named(new QLabel, "lblExplain")),
      lstWorks_(Named(new QListWidget, "lstWorks")), cmdOpen_(NewButton("cmdOpen", "&Open")),
      cmdCopy_(NewButton("cmdCopy", "&Copy…")), cmdDelete_(NewButton("cmdDelete", "&Delete")) {
    setObjectName("frmRecovered");
    setWindowTitle("Recovered Work");
    lstWorks_->setIconSize(QSize(PictureSide, PictureSide));
    lstWorks_->setSpacing(4);
    lstWorks_->setAccessibleName("Recovered work");
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(lblExplain_);
    layout->addWidget(lstWorks_);
    layout->addLayout(Buttons());
    connect(lstWorks_, &QListWidget::itemDoubleClicked, this, [this] { OpenChosen(); });
    connect(lstWorks_, &QListWidget::currentRowChanged, this, [this](int row) { Enable(row); });
    Fill();
    constexpr QSize usual(480, 460), frame(0, 60);
    resize(usual.boundedTo(screen()->availableSize() - frame));
}

frmRecovered::~frmRecovered() {
    if (occasion_ == Occasion::Start && session_.Recovery != nullptr) session_.Recovery->Keep(works_);
}

QString frmRecovered::Explanation() const {
    if (works_.empty()) return "There is no unsaved work.";
    return occasion_ == Occasion::Start
               ? "Pistaro ended before this work was saved. Open it to continue, or keep it for later:\n"
                 "it stays under Circuit, Recovered Work."
               : "Work that was not saved, or was discarded: the last twenty, the newest first.";
}

QLayout* frmRecovered::Buttons() {
    QPushButton* const cmdOK = NewButton("cmdOK", occasion_ == Occasion::Start ? "&Keep All" : "Close");
    cmdOK->setToolTip(occasion_ == Occasion::Start ? "Open none, and keep them under Circuit, Recovered Work" : "");
    cmdOpen_->setDefault(true);
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { OpenChosen(); });
    connect(cmdCopy_, &QPushButton::clicked, this,
            [this] { Do([this](const RecoveredWork& work) { CopyRecovered(session_, work); }); });
    connect(cmdDelete_, &QPushButton::clicked, this,
            [this] { Do([this](const RecoveredWork& work) { DeleteRecovered(session_, work); }); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::reject);
    auto* const row = new QHBoxLayout;
    row->addWidget(cmdDelete_);
    row->addStretch();
    for (QPushButton* const button : {cmdCopy_, cmdOpen_, cmdOK})
        row->addWidget(button);
    return row;
}

void frmRecovered::Fill() {
    const int before = lstWorks_->currentRow();
    works_ = occasion_ == Occasion::Start ? session_.Recovery->Untold() : session_.Recovery->Works();
    lblExplain_->setText(Explanation());
    lstWorks_->clear();
    for (const RecoveredWork& work : works_) {
        auto* const item = new QListWidgetItem(Description(work), lstWorks_);
        if (!work.Content) continue;
        item->setIcon(
            QIcon(QPixmap::fromImage(WorkPicture(session_.Catalogue, *work.Content, session_.Project.Preferences,
                                                 lstWorks_->iconSize(), devicePixelRatioF()))));
    }
    lstWorks_->setCurrentRow(std::clamp(before, 0, std::max(0, lstWorks_->count() - 1)));
    Enable(lstWorks_->currentRow());
}

void frmRecovered::Enable(int row) {
    const bool chosen = row >= 0;
    const bool damaged = chosen && !works_[static_cast<std::size_t>(row)].Content;
    const auto offer = [](QPushButton& button, const char* tip, const char* whyNot) {
        button.setEnabled(whyNot == nullptr);
        button.setToolTip(whyNot == nullptr ? tip : whyNot);
    };
    const char* const none = chosen ? nullptr : "Nothing is selected.";
    offer(*cmdOpen_, "Continue this work", damaged ? "This work is damaged." : none);
    offer(*cmdCopy_, "Write this work to a circuit file", none);
    offer(*cmdDelete_, "Delete this work permanently", none);
}

void frmRecovered::Do(const std::function<void(const RecoveredWork&)>& work) {
    const RecoveredWork chosen = works_[static_cast<std::size_t>(lstWorks_->currentRow())];
    session_.Do([&] { work(chosen); });
    Fill();
}

void frmRecovered::OpenChosen() {
    if (!cmdOpen_->isEnabled()) return;
    bool opened = false;
    Do([&](const RecoveredWork& work) { opened = OpenRecovered(session_, work); });
    if (opened) accept();
}

} // namespace pistaro
