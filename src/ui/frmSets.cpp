#include "ui/frmSets.h"

#include "commands/laying_commands.h"
#include "editor/owned_track.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/sets_file.h"
#include "text/number_text.h"
#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>

#include <exception>

namespace pistaro {

namespace {

/// A decimal comma is taken whatever the desktop's sign is.
Cents PriceIn(const QString& typed) {
    const std::string text = PlainNumber(typed);
    const std::string pointed = Shown(text).replace(',', '.').toStdString();
    return CentsOf(NumberIn(IsNumber(pointed) ? pointed : text, "the set's price"));
}

/// Puts the line's count into the set.
void KeepCount(const QTreeWidgetItem& line, BoxedSet& set) {
    const std::string text = PlainNumber(line.text(2));
    const std::string what = "the count of " + line.text(0).toStdString();
    const double number = NumberIn(text, what);
    const std::optional<int> count = RoundedWithin<int>(number, 0);
    if (!count || *count != number) throw TypeMismatch(what + ", \"" + text + "\", is no whole number from 0 on");
    const int row = line.data(0, Qt::UserRole).toInt();
    if (*count > 0)
        set.Pieces[row] = *count;
    else
        set.Pieces.erase(row);
}

} // namespace

frmSets::frmSets(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), file_(session.SettingsPath.parent_path() / SetsName), sets_(SetsOf(session)) {
    setObjectName("frmSets");
    setWindowTitle("Boxed Sets");
    setModal(true);
    auto* const columns = new QHBoxLayout;
    columns->addLayout(SetList());
    columns->addLayout(SetFields(), 1);
    auto* const layout = new QVBoxLayout(this);
    std::error_code unknown;
    const bool areExamples = !std::filesystem::exists(file_, unknown);
    auto* const lblSets = Named(new QLabel(areExamples ? "These are examples, which no purchase counts yet. Make them "
                                                         "the boxes that your shop sells, and save them."
                                                       : "The boxes that your shop sells. The cheapest purchase is "
                                                         "chosen among them."),
                                "lblSets");
    lblSets->setWordWrap(true);
    layout->addWidget(lblSets);
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

bool frmSets::KeepSet() {
    if (shown_ < 0 || shown_ >= static_cast<int>(sets_.size())) return true;
    BoxedSet& set = sets_[static_cast<std::size_t>(shown_)];
    set.Name = txtName_->text().toStdString();
    if (QListWidgetItem* const entry = lstSets_->item(shown_)) entry->setText(Shown(set.Name));
    std::exception_ptr fault;
    const auto keep = [&fault](const auto& field) {
        try {
            field();
        } catch (const Fault&) {
            if (!fault) fault = std::current_exception();
        }
    };
    keep([&] { set.Price = PriceIn(txtPrice_->text()); });
    for (int line = 0; line < lstPieces_->topLevelItemCount(); ++line)
        keep([&] { KeepCount(*lstPieces_->topLevelItem(line), set); });
    if (!fault) return true;
    session_.Do([&] { std::rethrow_exception(fault); });
    ShowSet();
    return false;
}

void frmSets::Save() {
    if (!KeepSet()) return;
    const bool saved = session_.Do([&] {
        const std::string text = SetsText(session_.Catalogue, sets_);
        ParseSets(session_.Catalogue, text, SetsName); // what could not be read again is told, and not written
        ReplaceFile(file_, text);
    });
    if (saved) accept();
}

} // namespace pistaro
