// Frames of piece buttons.
#include "ui/piece_palette.h"

#include "editor/building.h"
#include "ui/named_controls.h"
#include "ui/piece_icon.h"

#include <QGridLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int ButtonMargin = 3;
constexpr const char* WidestCaption = "10105";

QString CaptionOf(const QWidget& button) { return Shown(PieceCaption(TagOf(button))); }

} // namespace

PiecePalette::PiecePalette(Workbench& workbench, CommandControls& controls)
    : workbench_(workbench), controls_(controls), column_(new QVBoxLayout(this)), cmdInsert_(new QPushButton),
      cmdSeeRemaining_(new QPushButton("See re&maining")), keyFields_{{TrackSystem::Scalextric, NewKeyField(this)},
                                                                      {TrackSystem::Ninco, NewKeyField(this)}} {
    column_->setContentsMargins(0, 0, 0, 0);
    controls_.Bind(*cmdInsert_, [this]() -> const Command& { return ModeSwitch(); });
    column_->addWidget(cmdInsert_);

    constexpr auto scalextric = TrackSystem::Scalextric;
    constexpr auto ninco = TrackSystem::Ninco;
    column_->addWidget(Frame("fraStraights", "Str&aights", scalextric, 4, {"C160", "C159", "C158", "C157"}));
    column_->addWidget(
        PairOfFrames(Frame("fraLeftCurves", "&Left", scalextric, 2, {"C151L", "C154L", "C152L", "C156L", "C153L"}),
                     Frame("fraRightCurves", "R&ight", scalextric, 2, {"C151R", "C154R", "C152R", "C156R", "C153R"})));
    column_->addWidget(Frame("fraBankedCurves", "&Banked", scalextric, 4, {"C187L", "C187R"}));
    column_->addWidget(Frame("fraNincoStraights", "Str&aights", ninco, 4, {"N10102", "N10103", "N10104", "N10110"}));
    column_->addWidget(
        PairOfFrames(Frame("fraNincoLeftCurves", "&Left", ninco, 2, {"N10105L", "N10106L", "N10107L", "N10108L"}),
                     Frame("fraNincoRightCurves", "R&ight", ninco, 2, {"N10105R", "N10106R", "N10107R", "N10108R"})));

    cmdSeeRemaining_->setObjectName("cmdSeeRemaining");
    cmdSeeRemaining_->setToolTip("Hold to see how many pieces of each shape you have left");
    connect(cmdSeeRemaining_, &QPushButton::pressed, this, &PiecePalette::ShowAllRemaining);
    connect(cmdSeeRemaining_, &QPushButton::released, this, &PiecePalette::RestoreCaptions);
    column_->addWidget(cmdSeeRemaining_);
    column_->addStretch();
}

QWidget* PiecePalette::Frame(const char* name, const QString& title, TrackSystem system, int columns,
                             std::initializer_list<const char*> codes) {
    auto* const frame = new QGroupBox(title);
    frame->setObjectName(name);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* const grid = new QGridLayout(frame);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setSpacing(2);
    int place = 0;
    for (const char* const code : codes) {
        keyFields_.at(system)->addButton(AddPieceButton(*frame, code, place / columns, place % columns));
        ++place;
    }
    grid->setColumnStretch(columns, 1);
    frames_.emplace_back(frame, system);
    return frame;
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

QToolButton* PiecePalette::AddPieceButton(QGroupBox& frame, const std::string& code, int row, int column) {
    auto* const button = new QToolButton(&frame);
    controls_.Bind(*button, "add " + code);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIcon(PieceIcon(code));
    button->setIconSize(QSize(PieceIconSide, PieceIconSide));
    const int captionWidth = button->fontMetrics().horizontalAdvance(WidestCaption);
    button->setFixedWidth(std::max(PieceIconSide, captionWidth) + 2 * ButtonMargin);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::pressed, this,
            [this, button] { button->setText(QString::number(RemainingPieces(workbench_.Design, TagOf(*button)))); });
    connect(button, &QToolButton::released, this, [button] { button->setText(CaptionOf(*button)); });
    static_cast<QGridLayout*>(frame.layout())->addWidget(button, row, column);
    pieces_.push_back(button);
    return button;
}

void PiecePalette::ShowAllRemaining() {
    for (QToolButton* const button : pieces_) {
        button->setText(QString::number(OwnedLessUsedPieces(workbench_.Design, TagOf(*button))));
    }
}

void PiecePalette::RestoreCaptions() {
    for (QToolButton* const button : pieces_)
        button->setText(CaptionOf(*button));
}

const Command& PiecePalette::ModeSwitch() const {
    return *FindCommand(workbench_.Design.InsertMode ? "build" : "insert");
}

void PiecePalette::Refresh() {
    for (const auto& [frame, system] : frames_)
        frame->setVisible(system == workbench_.Design.System);
    cmdInsert_->setText(Shown(ModeSwitch().Caption));
}

} // namespace pistaro
