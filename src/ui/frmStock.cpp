// Four frames in three columns, a row a product.
#include "ui/frmStock.h"

#include "ui/named_controls.h"
#include "ui/workbench.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <cstdlib>

namespace pistaro {

namespace {

QLineEdit* NewBox(const char* name, int index, int digits) {
    QLineEdit* const box = Named(NewNumberBox(name, digits), name, index);
    box->setProperty("Tag", Shown(StockProducts[static_cast<std::size_t>(index)].Code));
    return box;
}

} // namespace

frmStock::frmStock(Project& project, Prompts& prompts, QWidget* parent)
    : QDialog(parent), project_(project), prompts_(prompts) {
    setObjectName("frmStock");
    setWindowTitle("Loose Track");
    auto* const explanation =
        Named(new QLabel("The first box represents the number of tracks of this type owned, the second its price."),
              "lblExplain");

    auto* const columns = new QHBoxLayout;
    int box = 0;
    QVBoxLayout* column = nullptr;
    for (std::size_t frame = 0; frame < StockFrames.size(); ++frame) {
        const bool sharesColumn = frame == 1; // the short frames of straights and curves stand above each other
        if (!sharesColumn) {
            column = new QVBoxLayout;
            columns->addLayout(column);
        }
        column->addWidget(NewFrame(StockFrames[frame], box));
        if (frame > 0) column->addStretch();
        box += StockFrames[frame].Products;
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    Load();
}

QGroupBox* frmStock::NewFrame(const StockFrame& frame, int firstBox) {
    auto* const group = new QGroupBox(Shown(frame.Caption));
    auto* const grid = new QGridLayout(group);
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(4);
    grid->setColumnStretch(0, 1);
    grid->addWidget(new QLabel("Owned"), 0, 2, Qt::AlignRight);
    grid->addWidget(new QLabel("Price"), 0, 3, Qt::AlignRight);
    for (int index = firstBox; index < firstBox + frame.Products; ++index) {
        const auto at = static_cast<std::size_t>(index);
        txtDsp_[at] = NewBox("txtDsp", index, 4);
        txtPrc_[at] = NewBox("txtPrc", index, 6);
        const QString name = Shown(StockProducts[at].Name);
        auto* const code = new QLabel(Shown(StockProducts[at].Code));
        code->setForegroundRole(QPalette::PlaceholderText);
        txtDsp_[at]->setAccessibleName(name + ", owned");
        txtPrc_[at]->setAccessibleName(name + ", price");
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(name), row, 0);
        grid->addWidget(code, row, 1);
        grid->addWidget(txtDsp_[at], row, 2);
        grid->addWidget(txtPrc_[at], row, 3);
    }
    return group;
}

QLayout* frmStock::Buttons() {
    QPushButton* const cmdSaveTrackStock = NewButton("cmdSaveTrackStock", "&Save");
    QPushButton* const cmdOK = NewButton("cmdOK", "Cancel");
    cmdSaveTrackStock->setDefault(true);
    EnableSaving(*cmdSaveTrackStock, !project_.SettingsPath.empty());
    if (cmdSaveTrackStock->isEnabled()) cmdSaveTrackStock->setToolTip("Keep these counts and prices, and close");
    cmdOK->setToolTip("Close without saving");
    connect(cmdSaveTrackStock, &QPushButton::clicked, this, [this] { Save(); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::reject);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdSaveTrackStock);
    row->addWidget(cmdOK);
    return row;
}

void frmStock::Load() {
    StockBoxes boxes;
    for (std::size_t box = 0; box < boxes.size(); ++box)
        boxes[box].Tag = TagOf(*txtDsp_[box]);
    if (!FillStockBoxes(project_, boxes)) {
        prompts_.Tell({Icon::Critical, StockTagFault});
        std::exit(EXIT_FAILURE);
    }
    for (std::size_t box = 0; box < boxes.size(); ++box) {
        txtDsp_[box]->setText(Shown(boxes[box].Owned));
        txtPrc_[box]->setText(Shown(boxes[box].Price));
    }
    txtDsp_.front()->selectAll(); // as Tab does: what is typed first replaces the count
}

void frmStock::Save() {
    StockBoxes boxes;
    for (std::size_t box = 0; box < boxes.size(); ++box) {
        boxes[box] = {TagOf(*txtDsp_[box]), txtDsp_[box]->text().toStdString(), txtPrc_[box]->text().toStdString()};
    }
    if (!Contained(prompts_, [&] { SaveOwnedTrack(project_, boxes, prompts_); })) return;
    if (Saved) Saved();
    accept();
}

} // namespace pistaro
