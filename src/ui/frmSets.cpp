#include "ui/frmSets.h"

#include "commands/laying_commands.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/sets_file.h"
#include "text/number_text.h"
#include "ui/named_controls.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>

namespace pistaro {

frmSets::frmSets(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), file_(session.SettingsPath.parent_path() / SetsName), sets_(SetsOf(session)) {
    setObjectName("frmSets");
    setWindowTitle("Boxed Sets");
    setModal(true);
    auto* const columns = new QHBoxLayout;
    columns->addLayout(SetList());
    columns->addLayout(SetFields(), 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("What your shop sells in boxes. The cheapest purchase is looked for among them."));
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    resize(640, 480);
    ListSets(0);
}

QLayout* frmSets::SetList() {
    lstSets_ = Named(new QListWidget, "lstSets");
    lstSets_->setAccessibleName("Sets");
    QPushButton* const cmdAddSet = NewButton("cmdAddSet", "&New");
    QPushButton* const cmdDeleteSet = NewButton("cmdDeleteSet", "&Delete");
    connect(lstSets_, &QListWidget::currentRowChanged, this, [this](int row) {
        KeepSet();
        shown_ = row;
        ShowSet();
    });
    connect(cmdAddSet, &QPushButton::clicked, this, [this] {
        KeepSet();
        sets_.push_back({"New set", 0, {}});
        ListSets(static_cast<int>(sets_.size()) - 1);
        txtName_->setFocus();
        txtName_->selectAll();
    });
    connect(cmdDeleteSet, &QPushButton::clicked, this, [this] {
        if (shown_ < 0) return;
        sets_.erase(sets_.begin() + shown_);
        ListSets(std::min(shown_, static_cast<int>(sets_.size()) - 1));
    });
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(cmdAddSet);
    buttons->addWidget(cmdDeleteSet);
    auto* const column = new QVBoxLayout;
    column->addWidget(lstSets_);
    column->addLayout(buttons);
    return column;
}

QLayout* frmSets::SetFields() {
    txtName_ = Named(new QLineEdit, "txtSetName");
    txtPrice_ = NewNumberBox("txtSetPrice", 8);
    lstPieces_ = Named(new QTreeWidget, "lstSetPieces");
    lstPieces_->setHeaderLabels({"Code", "Piece", "In the box"});
    lstPieces_->setRootIsDecorated(false);
    lstPieces_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstPieces_->setEditTriggers(QAbstractItemView::AllEditTriggers);
    lstPieces_->setAccessibleName("Pieces in the box");
    // A click anywhere in a line is for its count, the only thing to edit there.
    connect(lstPieces_, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { lstPieces_->editItem(item, 2); });
    auto* const fields = new QFormLayout;
    fields->addRow("N&ame", txtName_);
    fields->addRow("&Price, " + Shown(session_.Project.Preferences.Units.Currency), txtPrice_);
    fields->addRow(lstPieces_);
    return fields;
}

QLayout* frmSets::Buttons() {
    QPushButton* const cmdSaveSets = NewButton("cmdSaveSets", "&Save");
    QPushButton* const cmdCancelSets = NewButton("cmdCancelSets", "Cancel");
    cmdSaveSets->setDefault(true);
    EnableSaving(*cmdSaveSets, !session_.SettingsPath.empty());
    if (cmdSaveSets->isEnabled()) cmdSaveSets->setToolTip("Keep these sets, and close");
    connect(cmdSaveSets, &QPushButton::clicked, this, [this] { Save(); });
    connect(cmdCancelSets, &QPushButton::clicked, this, &QDialog::reject);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdSaveSets);
    row->addWidget(cmdCancelSets);
    return row;
}

void frmSets::ListSets(int chosen) {
    {
        const QSignalBlocker quiet(lstSets_);
        lstSets_->clear();
        for (const BoxedSet& set : sets_)
            lstSets_->addItem(Shown(set.Name));
        lstSets_->setCurrentRow(chosen);
    }
    shown_ = sets_.empty() ? -1 : chosen;
    ShowSet();
}

void frmSets::ShowSet() {
    const bool isAny = shown_ >= 0;
    for (QWidget* const field : std::initializer_list<QWidget*>{txtName_, txtPrice_, lstPieces_})
        field->setEnabled(isAny);
    lstPieces_->clear();
    const BoxedSet none;
    const BoxedSet& set = isAny ? sets_[static_cast<std::size_t>(shown_)] : none;
    txtName_->setText(Shown(set.Name));
    txtPrice_->setText(Shown(MoneyText(set.Price)));
    for (const int row : session_.Catalogue.ProductRows()) {
        const auto found = set.Pieces.find(row);
        const int count = found == set.Pieces.end() ? 0 : found->second;
        const CatalogueEntry& product = session_.Catalogue[row];
        auto* const item = new QTreeWidgetItem(
            lstPieces_, {Shown(ProductCode(product.Code)), Shown(product.LongName), QString::number(count)});
        item->setData(0, Qt::UserRole, row);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
}

void frmSets::KeepSet() {
    if (shown_ < 0 || shown_ >= static_cast<int>(sets_.size())) return;
    BoxedSet& set = sets_[static_cast<std::size_t>(shown_)];
    set.Name = txtName_->text().toStdString();
    set.Price = CentsOf(ParseNumber(txtPrice_->text().replace(',', '.').toStdString()));
    set.Pieces.clear();
    for (int line = 0; line < lstPieces_->topLevelItemCount(); ++line) {
        const QTreeWidgetItem& item = *lstPieces_->topLevelItem(line);
        if (const int count = item.text(2).toInt(); count > 0) set.Pieces[item.data(0, Qt::UserRole).toInt()] = count;
    }
    if (QListWidgetItem* const entry = lstSets_->item(shown_)) entry->setText(Shown(set.Name));
}

void frmSets::Save() {
    KeepSet();
    const bool saved = session_.Do([&] {
        const std::string text = SetsText(session_.Catalogue, sets_);
        ParseSets(session_.Catalogue, text, SetsName); // what could not be read again is told, and not written
        ReplaceFile(file_, text);
    });
    if (saved) accept();
}

} // namespace pistaro
