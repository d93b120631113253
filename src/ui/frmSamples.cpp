#include "ui/frmSamples.h"

#include "commands/circuit_commands.h"
#include "editor/start_up.h"
#include "platform/files.h"
#include "storage/circuit_file.h"
#include "ui/named_controls.h"
#include "ui/work_picture.h"

#include <QVBoxLayout>

namespace pistaro {

namespace {

constexpr int PictureSide = 150;

/// "grand prix, 67 pieces"
QString Description(const std::filesystem::path& sample, const Design& design) {
    std::size_t pieces = 0;
    for (const Track& track : design.Circuit.Tracks)
        pieces += track.ElementCodes.size();
    return Shown(TextFromPath(sample.stem())).replace('-', ' ') + QString("\n%1 pieces").arg(pieces);
}

} // namespace

frmSamples::frmSamples(Session& session, const std::filesystem::path& folder, QWidget* parent)
    : QDialog(parent), session_(session), lblExplain_(Named(new QLabel, "lblExplain")),
      lstSamples_(Named(new QListWidget, "lstSamples")), cmdOpen_(NewButton("cmdOpen", "&Open")) {
    setObjectName("frmSamples");
    setWindowTitle("Samples");
    lstSamples_->setAccessibleName("Samples");
    lstSamples_->setViewMode(QListView::IconMode);
    lstSamples_->setMovement(QListView::Static);
    lstSamples_->setResizeMode(QListView::Adjust);
    lstSamples_->setIconSize(QSize(PictureSide, PictureSide));
    lstSamples_->setGridSize(QSize(PictureSide + 20, PictureSide + 3 * fontMetrics().height()));
    for (const std::filesystem::path& sample : SamplesIn(folder))
        Add(sample);
    lblExplain_->setText(samples_.empty() ? "No samples found; they come with an installed Pistaro."
                                          : "Open one to look at it, or to continue from it under a name of your own.");
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(lblExplain_);
    layout->addWidget(lstSamples_);
    layout->addLayout(ButtonRow({cmdOpen_, cmdCancel}));
    cmdOpen_->setDefault(true);
    cmdOpen_->setEnabled(!samples_.empty());
    lstSamples_->setCurrentRow(0);
    lstSamples_->setFocus();
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { OpenChosen(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstSamples_, &QListWidget::itemDoubleClicked, this, [this] { OpenChosen(); });
    resize(4 * (PictureSide + 20) + 60, 2 * (PictureSide + 3 * fontMetrics().height()) + 90);
}

void frmSamples::Add(const std::filesystem::path& sample) {
    try {
        const Design design = ReadCircuit(sample);
        auto* const item = new QListWidgetItem(Description(sample, design), lstSamples_);
        item->setIcon(QIcon(QPixmap::fromImage(WorkPicture(session_.Catalogue, design, session_.Project.Preferences,
                                                           lstSamples_->iconSize(), devicePixelRatioF()))));
        samples_.push_back(sample);
    } catch (const std::exception&) {
        return; // what is no circuit is no sample
    }
}

void frmSamples::OpenChosen() {
    const int row = lstSamples_->currentRow();
    if (row < 0) return;
    bool opened = false;
    session_.Do([&] { opened = LoadSampleCommand(session_, samples_[static_cast<std::size_t>(row)]); });
    if (opened) accept();
}

} // namespace pistaro
