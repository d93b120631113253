#include "ui/drawn_parts_box.h"

#include "paper/paper_size.h"
#include "ui/choice_list.h"
#include "ui/named_controls.h"

#include <QFormLayout>

#include <QStringList>

namespace pistaro {

namespace {

/// In the order of the boxes.
constexpr std::array Parts{&DrawnParts::Numbers,      &DrawnParts::Grid,       &DrawnParts::Room,
                           &DrawnParts::Surface,      &DrawnParts::Background, &DrawnParts::StockColours,
                           &DrawnParts::BlackAndWhite};
constexpr std::array PartNames{"numbers", "grid", "room", "surface", "background", "missing pieces", "black and white"};
constexpr const char* WallTiles = "wall tiles";
constexpr const char* Nothing = "nothing";
constexpr const char* Between = ", ";

QString TrackName(int track) { return QString("track %1").arg(track + 1); }

} // namespace

DrawnPartsBox::DrawnPartsBox(const Project& project, const DrawnParts& first, const std::function<void()>& changed)
    : QGroupBox("Contents"), cboTrack_(Named(new ChoiceList, "cboTrack")),
      hasBackground_(project.Background != nullptr), chkNumbers_(Named(new QCheckBox("&Numbers"), "chkNumbers")),
      chkGrid_(Named(new QCheckBox("&Grid"), "chkGrid")), chkRoom_(Named(new QCheckBox("R&oom"), "chkRoom")),
      chkSurface_(Named(new QCheckBox("S&urface"), "chkSurface")),
      chkBackground_(Named(new QCheckBox("Bac&kground"), "chkBackground")),
      chkMissing_(Named(new QCheckBox("Mark &missing pieces"), "chkMissing")),
      chkBlackAndWhite_(Named(new QCheckBox("&Black and white"), "chkBlackAndWhite")) {
    auto* const form = new QFormLayout(this);
    for (int track = 0; track < TrackCount; ++track)
        cboTrack_->addItem(QString("Track %1").arg(track + 1), track);
    cboTrack_->insertItem(0, "All tracks", AllTracks);
    const bool hasPieces = first.Track != AllTracks &&
                           !project.Design.Circuit.Tracks[static_cast<std::size_t>(first.Track)].ElementCodes.empty();
    cboTrack_->setCurrentIndex(hasPieces ? cboTrack_->findData(first.Track) : 0);
    form->addRow("&Tracks:", cboTrack_);
    connect(cboTrack_, &QComboBox::currentIndexChanged, this, [changed] { changed(); });
    for (std::size_t part = 0; part < Parts.size(); ++part) {
        QCheckBox* const choice = Choices()[part];
        form->addRow(choice);
        choice->setChecked(first.*Parts[part]);
        connect(choice, &QCheckBox::toggled, this, [changed] { changed(); });
    }
    connect(chkBlackAndWhite_, &QCheckBox::toggled, this, [this] { EnableColours(); });
    EnableColours();
    chkSurface_->setToolTip("The tracks as they look, under their lines");
    chkMissing_->setToolTip("Owned pieces and those to buy in their colours; else all are drawn in black");
    chkBackground_->setEnabled(hasBackground_);
    chkBackground_->setToolTip(hasBackground_ ? "The picture that lies under the circuit to scale"
                                              : "No picture lies under the circuit to scale");
}

std::array<QCheckBox*, 7> DrawnPartsBox::Choices() const {
    return {chkNumbers_, chkGrid_, chkRoom_, chkSurface_, chkBackground_, chkMissing_, chkBlackAndWhite_};
}

std::string DrawnPartsBox::Remembered(const QCheckBox& walls) const {
    QStringList names;
    if (const int track = Chosen().Track; track != AllTracks) names << TrackName(track);
    if (walls.isChecked()) names << WallTiles;
    for (std::size_t part = 0; part < Parts.size(); ++part) {
        if (Choices()[part]->isChecked()) names << PartNames[part];
    }
    return names.isEmpty() ? Nothing : names.join(Between).toStdString();
}

DrawnParts PartsIn(const std::string& remembered, const DrawnParts& otherwise) {
    if (remembered.empty()) return otherwise;
    const QStringList names = Shown(remembered).split(Between);
    DrawnParts parts;
    for (int track = 0; track < TrackCount; ++track) {
        if (names.contains(TrackName(track))) parts.Track = track;
    }
    for (std::size_t part = 0; part < Parts.size(); ++part)
        parts.*Parts[part] = names.contains(PartNames[part]);
    return parts;
}

DrawnParts DrawnPartsBox::Chosen() const {
    return {.Track = cboTrack_->currentData().toInt(),
            .Numbers = chkNumbers_->isChecked(),
            .Grid = chkGrid_->isChecked(),
            .Room = chkRoom_->isChecked(),
            .Surface = chkSurface_->isChecked() && chkSurface_->isEnabled(),
            .BlackAndWhite = chkBlackAndWhite_->isChecked(),
            .Background = chkBackground_->isChecked() && chkBackground_->isEnabled(),
            .StockColours = chkMissing_->isChecked()};
}

/// What marks pieces by colours does not go with black and white.
void DrawnPartsBox::EnableColours() {
    chkMissing_->setEnabled(chkBlackAndWhite_->isEnabled() && !chkBlackAndWhite_->isChecked());
}

void DrawnPartsBox::EnableDrawing(bool draws, bool fills) {
    for (QCheckBox* const choice : {chkNumbers_, chkGrid_, chkRoom_})
        choice->setEnabled(draws);
    for (QCheckBox* const choice : {chkSurface_, chkBlackAndWhite_})
        choice->setEnabled(fills);
    EnableColours();
    chkBackground_->setEnabled(fills && hasBackground_);
}

QCheckBox* NewWallsBox(const std::string& remembered) {
    auto* const box = Named(new QCheckBox("Tiles with &walls alone, too"), "chkWalls");
    box->setToolTip("Also the sheets on which nothing of the track stands, only a line of the room's wall");
    box->setChecked(Shown(remembered).split(Between).contains(WallTiles));
    return box;
}

QComboBox* NewPaperList(const std::string& chosen) {
    auto* const list = Named(new ChoiceList, "cboPaper");
    for (const PaperSize& paper : PaperSizes) {
        list->addItem(paper.Name, QString(paper.Name));
        list->setItemData(list->count() - 1, QString("%1 × %2 cm").arg(paper.Width).arg(paper.Height), Qt::ToolTipRole);
    }
    list->setCurrentText(FindPaper(chosen).value_or(PaperA4).Name);
    return list;
}

} // namespace pistaro
