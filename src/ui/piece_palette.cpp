#include "ui/piece_palette.h"

#include "editor/building.h"
#include "editor/palette_pieces.h"
#include "ui/fold_out.h"
#include "ui/named_controls.h"

#include <QGridLayout>

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

bool IsCurve(const CatalogueEntry& piece, PieceShape hand) { return piece.Kind.Shape == hand && !piece.Banked; }

bool IsStraight(const CatalogueEntry& piece) { return piece.IsStraight(); }
bool IsLeftCurve(const CatalogueEntry& piece) { return IsCurve(piece, PieceShape::LeftCurve); }
bool IsRightCurve(const CatalogueEntry& piece) { return IsCurve(piece, PieceShape::RightCurve); }
bool IsBanked(const CatalogueEntry& piece) { return piece.Banked; }

QString CaptionOf(const QWidget& button) { return Shown(PieceCaption(TagOf(button))); }

} // namespace

/// A frame of piece buttons and the basic pieces that stand in it.
struct PieceFrame {
    const char* Name;
    const char* Title;
    TrackSystem System;
    int Columns;
    bool (*Holds)(const CatalogueEntry&);
};

namespace {

constexpr auto Scx = TrackSystem::Scalextric;
constexpr auto Nin = TrackSystem::Ninco;
constexpr PieceFrame Straights{"fraStraights", "Str&aights", Scx, 4, IsStraight};
constexpr PieceFrame LeftCurves{"fraLeftCurves", "Le&ft", Scx, 2, IsLeftCurve};
constexpr PieceFrame RightCurves{"fraRightCurves", "R&ight", Scx, 2, IsRightCurve};
constexpr PieceFrame BankedCurves{"fraBankedCurves", "&Banked", Scx, 4, IsBanked};
constexpr PieceFrame NincoStraights{"fraNincoStraights", "Str&aights", Nin, 4, IsStraight};
constexpr PieceFrame NincoLeftCurves{"fraNincoLeftCurves", "Le&ft", Nin, 2, IsLeftCurve};
constexpr PieceFrame NincoRightCurves{"fraNincoRightCurves", "R&ight", Nin, 2, IsRightCurve};

/// From the top down; where there are two, side by side.
constexpr std::array<std::array<const PieceFrame*, 2>, 5> FrameRows{{{&Straights, nullptr},
                                                                     {&LeftCurves, &RightCurves},
                                                                     {&BankedCurves, nullptr},
                                                                     {&NincoStraights, nullptr},
                                                                     {&NincoLeftCurves, &NincoRightCurves}}};

std::vector<const CatalogueEntry*> PiecesIn(const PieceFrame& frame, const Catalogue& catalogue) {
    std::vector<const CatalogueEntry*> pieces;
    for (const CatalogueEntry& piece : catalogue) {
        if (piece.IsBasic() && piece.System == frame.System && frame.Holds(piece)) pieces.push_back(&piece);
    }
    std::ranges::stable_sort(pieces, {}, &CatalogueEntry::Place);
    return pieces;
}

} // namespace

PiecePalette::PiecePalette(Session& session, CommandControls& controls)
    : session_(session), controls_(controls), column_(new QVBoxLayout(this)), cmdInsert_(new ModeSwitch),
      finder_(
          session, *this, [this] { ShowFrames(); }, [this](const std::string& code) { PointedAt(code); },
          [this](const std::string& code) { TakenUp(code); }),
      cmdSeeRemaining_(new QPushButton), keyFields_{{TrackSystem::Scalextric, NewKeyField(this)},
                                                    {TrackSystem::Ninco, NewKeyField(this)}} {
    column_->setContentsMargins(0, 0, 0, 0);
    controls_.Bind(*cmdInsert_, [this]() -> const Command& { return ModeSwitchRow(); });
    column_->addWidget(cmdInsert_);
    column_->addWidget(&finder_.Line());
    column_->addWidget(&finder_.List(), 1);
    for (const auto& [left, right] : FrameRows) {
        QWidget* const frame = Frame(*left);
        column_->addWidget(right == nullptr ? frame : PairOfFrames(frame, Frame(*right)));
    }
    controls_.Bind(*cmdSeeRemaining_, "see remaining");
    connect(cmdSeeRemaining_, &QPushButton::pressed, this, &PiecePalette::ShowAllRemaining);
    connect(cmdSeeRemaining_, &QPushButton::released, this, &PiecePalette::RestoreCaptions);
    column_->addWidget(cmdSeeRemaining_);
    column_->addStretch();
}

QWidget* PiecePalette::Frame(const PieceFrame& frame) {
    auto* const group = new QGroupBox(frame.Title);
    group->setObjectName(frame.Name);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* const grid = new QGridLayout(group);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setSpacing(2);
    int place = 0;
    for (const CatalogueEntry* const piece : PiecesIn(frame, session_.Catalogue)) {
        keyFields_.at(frame.System)
            ->addButton(AddPieceButton(*group, *piece, place / frame.Columns, place % frame.Columns));
        ++place;
    }
    grid->setColumnStretch(frame.Columns, 1);
    frames_.emplace_back(group, frame.System);
    return group;
}

QWidget* PiecePalette::PairOfFrames(QWidget* left, QWidget* right) {
    auto* const pair = new QWidget;
    pair->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* const row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(left);
    row->addWidget(right);
    frames_.emplace_back(pair, frames_.back().second);
    return pair;
}

FoldOut* PiecePalette::NewFoldOut(const CatalogueEntry& basic, const std::vector<int>& specials) {
    auto* const foldOut = new FoldOut(session_, controls_, basic.Code, specials, this);
    connect(foldOut, &QMenu::hovered, this, [this](const QAction* special) { PointedAt(TagOf(*special)); });
    for (const auto signal : {&QMenu::aboutToShow, &QMenu::aboutToHide})
        connect(foldOut, signal, this, [this] { PointedAt(""); }); // nor is its button meant
    foldOut->TakenUp = [this](const std::string& code) { TakenUp(code); };
    return foldOut;
}

PieceButton* PiecePalette::AddPieceButton(QGroupBox& frame, const CatalogueEntry& piece, int row, int column) {
    auto* const button = new PieceButton(piece, session_.Catalogue, &frame);
    controls_.Bind(*button, "add " + piece.Code);
    if (const std::vector<int> specials = SpecialsOf(session_.Catalogue, piece); !specials.empty())
        button->SetFoldOut(*NewFoldOut(piece, specials));
    connect(button, &QToolButton::pressed, this, [this, button] { ShowNumber(*button, RemainingPieces); });
    connect(button, &QToolButton::released, this, [button] { button->setText(CaptionOf(*button)); });
    static_cast<QGridLayout*>(frame.layout())->addWidget(button, row, column);
    pieces_.push_back(button);
    return button;
}

void PiecePalette::ShowNumber(QToolButton& button, Count count) {
    const Project& project = session_.Project;
    button.setText(QString::number(count(session_.Catalogue, project.Design.Circuit, project.Stock, TagOf(button))));
}

void PiecePalette::ShowAllRemaining() {
    for (PieceButton* const button : pieces_)
        ShowNumber(*button, OwnedLessUsedPieces);
}

void PiecePalette::RestoreCaptions() {
    for (PieceButton* const button : pieces_) {
        if (!button->isDown()) button->setText(CaptionOf(*button));
    }
}

const Command& PiecePalette::ModeSwitchRow() const {
    return *session_.Commands.Find(session_.Project.EditState.InsertMode ? "build" : "insert");
}

void PiecePalette::ShowFrames() {
    for (const auto& [frame, system] : frames_)
        frame->setVisible(system == session_.Project.EditState.System && !finder_.IsOn());
    setMinimumWidth(finder_.IsOn() ? width() : 0); // the drawing keeps its place
    finder_.List().setVisible(finder_.IsOn());
}

void PiecePalette::Refresh() {
    const Project& project = session_.Project;
    ShowFrames();
    cmdInsert_->setText(Shown(ModeSwitchRow().Caption));
    cmdInsert_->ShowMode(project.EditState.InsertMode);
    const UsedCounts used = CountUsed(session_.Catalogue, project.Design.Circuit);
    for (PieceButton* const button : pieces_) {
        const CatalogueEntry& piece = *session_.Catalogue.Find(TagOf(*button));
        const int left = LeftInBox(session_.Catalogue, used, project.Stock, piece);
        button->ShowLeft(left, LeftText(project.Stock, left));
    }
    finder_.Refresh();
    // What is let go while a box stands open is heard by nobody.
    if (!cmdSeeRemaining_->isDown()) RestoreCaptions();
}

} // namespace pistaro
