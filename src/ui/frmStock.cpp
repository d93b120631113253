#include "ui/frmStock.h"

#include "ui/named_controls.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <cstdlib>
#include <initializer_list>

namespace pistaro {

namespace {

QLineEdit* NewBox(const char* name, int index, const std::string& tag, int digits) {
    QLineEdit* const box = Named(NewNumberBox(name, digits), name, index);
    box->setProperty("Tag", Shown(tag));
    return box;
}

} // namespace

frmStock::frmStock(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), empty_(EmptyStockBoxes(session.Catalogue)) {
    setObjectName("frmStock");
    setWindowTitle("Loose Track");
    auto* const explanation =
        Named(new QLabel("The first box represents the number of tracks of this type owned, the second its price."),
              "lblExplain");

    auto* const columns = new QHBoxLayout;
    const auto addColumn = [&](std::initializer_list<StockFrame> frames) {
        auto* const column = new QVBoxLayout;
        for (const StockFrame frame : frames)
            column->addWidget(NewFrame(frame));
        column->addStretch();
        columns->addLayout(column);
    };
    addColumn({StockFrame::ScalextricStraights, StockFrame::ScalextricCurves});
    addColumn({StockFrame::ScalextricSpecialists});
    addColumn({StockFrame::Ninco});
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    Load();
}

QGroupBox* frmStock::NewFrame(StockFrame frame) {
    auto* const group = new QGroupBox(CaptionOf(frame));
    auto* const grid = new QGridLayout(group);
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(4);
    grid->setColumnStretch(0, 1);
    grid->addWidget(new QLabel("Owned"), 0, 2, Qt::AlignRight);
    grid->addWidget(new QLabel("Price"), 0, 3, Qt::AlignRight);
    for (const StockBox& box : empty_) {
        if (box.Frame != frame) continue;
        const int index = static_cast<int>(txtDsp_.size()); // frames are filled in the order of the boxes
        const QString name = Shown(box.Name);
        txtDsp_.push_back(NewBox("txtDsp", index, box.Tag, 4));
        txtPrc_.push_back(NewBox("txtPrc", index, box.Tag, 6));
        txtDsp_.back()->setAccessibleName(name + ", owned");
        txtPrc_.back()->setAccessibleName(name + ", price");
        auto* const code = new QLabel(Shown(box.Tag));
        code->setForegroundRole(QPalette::PlaceholderText);
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(name), row, 0);
        grid->addWidget(code, row, 1);
        grid->addWidget(txtDsp_.back(), row, 2);
        grid->addWidget(txtPrc_.back(), row, 3);
    }
    return group;
}

QLayout* frmStock::Buttons() {
    QPushButton* const cmdSaveTrackStock = NewButton("cmdSaveTrackStock", "&Save");
    QPushButton* const cmdOK = NewButton("cmdOK", "Cancel");
    cmdSaveTrackStock->setDefault(true);
    EnableSaving(*cmdSaveTrackStock, !session_.SettingsPath.empty());
    if (cmdSaveTrackStock->isEnabled()) cmdSaveTrackStock->setToolTip("Keep these counts and prices, and close");
    cmdOK->setToolTip("Close without saving");
    connect(cmdSaveTrackStock, &QPushButton::clicked, this, [this] { Save(); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdSaveTrackStock, cmdOK});
}

void frmStock::Load() {
    StockBoxes boxes = empty_;
    for (std::size_t box = 0; box < boxes.size(); ++box)
        boxes[box].Tag = TagOf(*txtDsp_[box]);
    if (!FillStockBoxes(session_.Catalogue, session_.Project.Stock, boxes)) {
        session_.Prompts.Tell({Icon::Critical, StockTagFault});
        std::exit(EXIT_FAILURE);
    }
    for (std::size_t box = 0; box < boxes.size(); ++box) {
        txtDsp_[box]->setText(Shown(boxes[box].Owned));
        txtPrc_[box]->setText(Shown(boxes[box].Price));
    }
    txtDsp_.front()->selectAll(); // as Tab does: what is typed first replaces the count
}

void frmStock::Save() {
    StockBoxes boxes = empty_;
    for (std::size_t box = 0; box < boxes.size(); ++box) {
        boxes[box].Tag = TagOf(*txtDsp_[box]);
        boxes[box].Owned = txtDsp_[box]->text().toStdString();
        boxes[box].Price = txtPrc_[box]->text().toStdString();
    }
    const bool saved = session_.Do([&] {
        SaveOwnedTrack(session_.Catalogue, session_.SettingsPath, session_.Project.Stock, boxes, session_.Prompts);
    });
    if (saved) accept();
}

} // namespace pistaro
