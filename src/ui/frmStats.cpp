// The dialog's layout: four frames side by side, the detail area below them, its products in three columns.
#include "ui/frmStats.h"

#include "model/length_text.h"
#include "stats/built_frames.h"
#include "stats/design_checks.h"
#include "stats/frames.h"
#include "stats/shopping_list.h"
#include "text/number_text.h"
#include "ui/named_controls.h"

#include <QGridLayout>
#include <QGroupBox>

namespace pistaro {

namespace {

QLabel* NewLabel(const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(alignment | Qt::AlignVCenter);
    return label;
}

QGroupBox* NewFrame(int index, const StatisticsFrame& texts, const BuiltLanes& built, const Units& units) {
    auto* const frame = Named(new QGroupBox(Shown(texts.Name)), "fraTrack", index);
    auto* const grid = new QGridLayout(frame);
    grid->setContentsMargins(3, 8, 3, 8);
    grid->setHorizontalSpacing(3);
    grid->setColumnStretch(1, 1);
    // Wide enough for all but rare figures, so that the frames are equally wide.
    grid->setColumnMinimumWidth(1, frame->fontMetrics().horizontalAdvance("888.88"));
    const auto add = [&](const char* caption, const char* name, const std::string& value, QLabel* unit) {
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(caption), row, 0);
        grid->addWidget(Named(NewLabel(Shown(value), Qt::AlignRight), name, index), row, 1);
        if (unit != nullptr) grid->addWidget(unit, row, 2);
    };
    const auto lengthUnit = [&](const char* name, int place) { return Named(NewLabel(units.Name()), name, place); };
    add(LeftLengthCaption, "lblLL", texts.Left, lengthUnit("lblUnit", 2 * index));
    add(BuiltLeftCaption, "lblBuiltLeft", FineLength(built.Lengths[0], units), lengthUnit("lblBuiltUnit", 2 * index));
    add(RightLengthCaption, "lblRL", texts.Right, lengthUnit("lblUnit", 2 * index + 1));
    add(BuiltRightCaption, "lblBuiltRight", FineLength(built.Lengths[1], units),
        lengthUnit("lblBuiltUnit", 2 * index + 1));
    add(PriceCaption, "lblPrice", texts.Price, Named(NewLabel(Shown(units.Currency)), "lblCurrency", index));
    add(ElementsCaption, "lblElNum", texts.Elements, nullptr);
    if (built.Joined) frame->setToolTip(Shown(LanesText(built, units)));
    return frame;
}

constexpr std::array<const char*, 3> ColumnHeadings{"Scalextric", "Ninco", "Special pieces"};

/// A product's column in the detail area.
std::size_t ColumnOf(const CatalogueEntry& product) {
    if (!product.IsBasic()) return 2;
    return product.System == TrackSystem::Scalextric ? 0 : 1;
}

Detail DetailOf(const Session& session, int track, bool includeOwned) {
    return ShowDetail(session.Catalogue, session.Project.Stock, session.Project.Design.Circuit, track, includeOwned);
}

} // namespace

frmStats::frmStats(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), detail_(DetailOf(session, AllTracks, false)) {
    setObjectName("frmStats");
    setWindowTitle("Track Statistics");
    setModal(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(5, 8, 5, 8); // four frames side by side on the smallest screen
    layout->addWidget(Frames());
    layout->addWidget(DetailArea());
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);

    ShowDetailOf(AllTracks);
    for (const Message& message :
         DesignChecks(session_.Catalogue, session_.Project.Stock, session_.Project.Design.Circuit))
        session_.Prompts.Tell(message);
}

QWidget* frmStats::Frames() {
    auto* const frames = new QWidget;
    auto* const row = new QHBoxLayout(frames);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(3);
    int index = 0;
    const Units& units = session_.Project.Preferences.Units;
    const auto built = BuiltFrames(session_.Catalogue, session_.Project.Design.Circuit);
    for (const StatisticsFrame& texts :
         StatisticsFrames(session_.Catalogue, session_.Project.Stock, session_.Project.Design.Circuit, units)) {
        QGroupBox* const frame = NewFrame(index, texts, built[static_cast<std::size_t>(index)], units);
        QPushButton* const cmdDetail = Named(new QPushButton("Detail"), "cmdDetail", index);
        connect(cmdDetail, &QPushButton::clicked, this, [this, index] { session_.Do([&] { ShowDetailOf(index); }); });
        auto* const grid = static_cast<QGridLayout*>(frame->layout());
        grid->addWidget(cmdDetail, grid->rowCount(), 0, 1, 3, Qt::AlignRight);
        row->addWidget(frame, 1);
        ++index;
    }
    return frames;
}

QWidget* frmStats::DetailArea() {
    fraDetail_ = Named(new QGroupBox, "fraDetail");
    auto* const area = new QVBoxLayout(fraDetail_);
    area->addLayout(Products());
    area->addSpacing(8);
    area->addLayout(Price());
    return fraDetail_;
}

QLayout* frmStats::Products() {
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(48);
    std::array<QGridLayout*, ColumnHeadings.size()> grids{};
    for (std::size_t column = 0; column < grids.size(); ++column) {
        grids[column] = new QGridLayout;
        grids[column]->setVerticalSpacing(3);
        grids[column]->setColumnStretch(0, 1);
        grids[column]->setColumnMinimumWidth(1, fontMetrics().horizontalAdvance("32767"));
        grids[column]->addWidget(new QLabel("<b>" + QString(ColumnHeadings[column]) + "</b>"), 0, 0);
        columns->addLayout(grids[column], 1);
        columns->setAlignment(grids[column], Qt::AlignTop);
    }
    for (const CountLabel& label : detail_.Labels) {
        lblDescript_.push_back(Named(NewLabel(Shown(label.Description)), "lblDescript", label.Index));
        lblEnum_.push_back(Named(NewLabel("0", Qt::AlignRight), "lblEnum", label.Index));
        lblEnum_.back()->setProperty("Tag", Shown(label.Tag));
        QGridLayout* const grid = grids[ColumnOf(*label.Product)];
        const int row = grid->rowCount();
        grid->addWidget(lblDescript_.back(), row, 0);
        grid->addWidget(lblEnum_.back(), row, 1);
    }
    return columns;
}

QLayout* frmStats::Price() {
    chkInclude_ = Named(new QCheckBox("&Include already owned track"), "chkInclude");
    chkInclude_->setToolTip("Takes effect at the next press of a Detail button");
    lblTotPrice_ = Named(NewLabel("0", Qt::AlignRight), "lblTotPrice");
    auto* const row = new QHBoxLayout;
    row->addWidget(chkInclude_);
    row->addStretch();
    row->addWidget(new QLabel("Price:"));
    row->addWidget(lblTotPrice_);
    row->addWidget(Named(NewLabel(Shown(session_.Project.Preferences.Units.Currency)), "lblCurrency", AllTracks + 1));
    return row;
}

QLayout* frmStats::Buttons() {
    QPushButton* const cmdShop = NewButton("cmdShop", "&Shopping List");
    cmdShop->setToolTip("Writes the pieces shown above into shoppingList.txt");
    QPushButton* const cmdClose = NewButton("cmdClose", "Close");
    cmdClose->setDefault(true);
    connect(cmdShop, &QPushButton::clicked, this, [this] {
        session_.Do([&] {
            session_.Prompts.Tell(
                WriteShoppingList(session_.Catalogue, session_.Project.Stock, session_.Project.Preferences, detail_));
        });
    });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    return ButtonRow({cmdShop, cmdClose});
}

void frmStats::ShowDetailOf(int track) {
    detail_ = DetailOf(session_, track, chkInclude_->isChecked());
    fraDetail_->setTitle(Shown(DetailCaption(detail_)));
    for (std::size_t k = 0; k < lblEnum_.size(); ++k) {
        const int count = detail_.Labels[k].Count;
        lblEnum_[k]->setText(Shown(NumberText(count)));
        // What is not needed steps back.
        const auto role = count > 0 ? QPalette::WindowText : QPalette::PlaceholderText;
        lblEnum_[k]->setForegroundRole(role);
        lblDescript_[k]->setForegroundRole(role);
    }
    lblTotPrice_->setText(Shown(NumberText(detail_.TotalPrice)));
}

} // namespace pistaro
