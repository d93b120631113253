#include "ui/drawn_parts_box.h"

#include "paper/paper_size.h"
#include "ui/named_controls.h"

#include <QFormLayout>

namespace pistaro {

DrawnPartsBox::DrawnPartsBox(const Project& project, const std::function<void()>& changed)
    : QGroupBox("Contents"), cboTrack_(Named(new QComboBox, "cboTrack")), hasBackground_(project.Background != nullptr),
      chkNumbers_(Named(new QCheckBox("&Numbers"), "chkNumbers")), chkGrid_(Named(new QCheckBox("&Grid"), "chkGrid")),
      chkRoom_(Named(new QCheckBox("R&oom"), "chkRoom")), chkSurface_(Named(new QCheckBox("S&urface"), "chkSurface")),
      chkBackground_(Named(new QCheckBox("Bac&kground"), "chkBackground")),
      chkBlackAndWhite_(Named(new QCheckBox("&Black and white"), "chkBlackAndWhite")) {
    auto* const form = new QFormLayout(this);
    for (int track = 0; track < TrackCount; ++track)
        cboTrack_->addItem(QString("Track %1").arg(track + 1), track);
    cboTrack_->insertItem(0, "All tracks", AllTracks);
    cboTrack_->setCurrentIndex(0);
    form->addRow("&Tracks:", cboTrack_);
    connect(cboTrack_, &QComboBox::currentIndexChanged, this, [changed] { changed(); });
    for (QCheckBox* const choice : {chkNumbers_, chkGrid_, chkRoom_, chkSurface_, chkBackground_, chkBlackAndWhite_}) {
        form->addRow(choice);
        connect(choice, &QCheckBox::toggled, this, [changed] { changed(); });
    }
    chkBackground_->setEnabled(hasBackground_);
    chkBackground_->setToolTip(hasBackground_ ? "The picture that lies under the circuit to scale"
                                              : "No picture lies under the circuit to scale");
}

DrawnParts DrawnPartsBox::Chosen() const {
    return {.Track = cboTrack_->currentData().toInt(),
            .Numbers = chkNumbers_->isChecked(),
            .Grid = chkGrid_->isChecked(),
            .Room = chkRoom_->isChecked(),
            .Surface = chkSurface_->isChecked() && chkSurface_->isEnabled(),
            .BlackAndWhite = chkBlackAndWhite_->isChecked(),
            .Background = chkBackground_->isChecked() && chkBackground_->isEnabled()};
}

void DrawnPartsBox::EnableDrawing(bool draws, bool fills) {
    for (QCheckBox* const choice : {chkNumbers_, chkGrid_, chkRoom_})
        choice->setEnabled(draws);
    for (QCheckBox* const choice : {chkSurface_, chkBlackAndWhite_})
        choice->setEnabled(fills);
    chkBackground_->setEnabled(fills && hasBackground_);
}

QComboBox* NewPaperList(const std::string& chosen) {
    auto* const list = Named(new QComboBox, "cboPaper");
    for (const PaperSize& paper : PaperSizes)
        list->addItem(paper.Name, QString(paper.Name));
    list->setCurrentText(FindPaper(chosen).value_or(PaperA4).Name);
    return list;
}

} // namespace pistaro
