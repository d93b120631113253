#include "ui/frmSets.h"

#include "commands/laying_commands.h"
#include "editor/piece_list.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/sets_file.h"
#include "text/count_text.h"
#include "text/number_text.h"
#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>

namespace pistaro {

namespace {

enum Column { Code, Name, Count };

int RowOf(const QTreeWidgetItem& line) { return line.data(Code, Qt::UserRole).toInt(); }

/// What was typed as a number; nothing typed is 0.
double NumberIn(const QString& typed) { return typed.trimmed().isEmpty() ? 0 : ParseNumber(PlainNumber(typed)); }

/// Without the error's own name.
QString DetailOf(const Fault& fault) {
    const QString text = Shown(fault.what());
    return text.mid(text.indexOf(": ") + 2);
}

/// Puts the line's count into the set.
void KeepCount(const QTreeWidgetItem& line, BoxedSet& set) {
    if (!WhyNoCount(line.text(Count), MostInASet).isEmpty()) return;
    const int count = static_cast<int>(NumberIn(line.text(Count)));
    if (count > 0)
        set.Pieces[RowOf(line)] = count;
    else
        set.Pieces.erase(RowOf(line));
}

} // namespace

frmSets::frmSets(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), file_(session.SettingsPath.parent_path() / SetsName),
      areExamples_(!SetsBeside(session.Catalogue, session.SettingsPath)), before_(SetsOf(session)), sets_(before_),
      lblFault_(new FaultNote(*this, "lblSetFault")) {
    setObjectName("frmSets");
    setWindowTitle("Boxed Sets");
    setModal(true);
    auto* const columns = new QHBoxLayout;
    columns->addLayout(SetList(), 1);
    columns->addLayout(SetFields(), 2);
    auto* const layout = new QVBoxLayout(this);
    auto* const lblSets =
        Named(new QLabel(areExamples_ ? "These are examples, which no purchase counts yet. Make them "
                                        "the boxes that your shop sells, and save them. Examples that "
                                        "you leave as they are, are not saved with others."
                                      : "The boxes that your shop sells. The cheapest purchase is "
                                        "chosen among them."),
              "lblSets");
    lblSets->setWordWrap(true);
    layout->addWidget(lblSets);
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    resize(700, 520);
    ListSets(0);
}

QLayout* frmSets::SetList() {
    lstSets_ = Named(new QListWidget, "lstSets");
    lstSets_->setAccessibleName("Sets");
    lstSets_->setWordWrap(true); // names are as long as their user likes
    lstSets_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstSets_->setAlternatingRowColors(true);
    QPushButton* const cmdAddSet = NewButton("cmdAddSet", "&New");
    QPushButton* const cmdDeleteSet = NewButton("cmdDeleteSet", "&Delete");
    connect(lstSets_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!KeepSet()) return StayWithSet();
        shown_ = row;
        ShowSet();
    });
    connect(cmdAddSet, &QPushButton::clicked, this, [this] {
        if (!KeepSet()) return;
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
    connect(txtName_, &QLineEdit::textEdited, this, [this](const QString& name) {
        if (QListWidgetItem* const entry = lstSets_->item(shown_)) entry->setText(name);
    });
    txtPrice_ = NewNumberBox("txtSetPrice", 8);
    lstPieces_ = Named(new FieldTable({Count}, {Count}), "lstSetPieces");
    lstPieces_->SetHeadings({"Code", "Piece", "In the box"});
    lstPieces_->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    lstPieces_->setAccessibleName("Pieces in the box");
    lstPieces_->SetEmptyText(NoProductFound);
    txtFind_ = new ProductFinder("txtFindProduct");
    txtFind_->GoesOn = [this] {
        QTreeWidgetItem* const first = FirstListed(*lstPieces_);
        if (first == nullptr) return;
        lstPieces_->setFocus();
        lstPieces_->setCurrentItem(first, Count);
        lstPieces_->editItem(first, Count);
    };
    connect(txtPrice_, &QLineEdit::editingFinished, this, [this] { IsPriceRight(); });
    connect(txtPrice_, &QLineEdit::textEdited, this, [this] {
        if (wrong_ == txtPrice_) IsPriceRight();
    });
    connect(txtFind_, &QLineEdit::textChanged, this, [this] { Find(); });
    connect(lstPieces_, &QTreeWidget::itemChanged, this, [this] { ShowContents(); });
    lstPieces_->WhyNot = [](const FieldTable::Entry& entry) { return WhyNoCount(entry.Text, MostInASet); };
    lstPieces_->Keep = [this](const FieldTable::Step&) {
        ShowContents();
        return true;
    };
    lstPieces_->Marked = [this] { ShowContents(); };
    lblContents_ = Named(new QLabel, "lblSetContents");
    lblContents_->setAlignment(Qt::AlignRight);
    auto* const fields = new QFormLayout;
    fields->addRow("N&ame", txtName_);
    fields->addRow(WithSign("&Price", session_.Project.Preferences.Units.Currency), txtPrice_);
    QLayout* const list = PieceList();
    auto* const caption = new QLabel("From a &list");
    caption->setBuddy(txtList_);
    fields->addRow(caption, list);
    fields->addRow("P&ieces", txtFind_);
    auto* const column = new QVBoxLayout;
    column->addLayout(fields);
    column->addWidget(lstPieces_, 1);
    column->addWidget(lblContents_);
    return column;
}

QLayout* frmSets::PieceList() {
    txtList_ = Named(new QLineEdit, "txtSetList");
    txtList_->setPlaceholderText("8 C151, 4 C160, C367");
    txtList_->setToolTip("What is in the box, typed or pasted: codes with their counts");
    txtList_->setAccessibleName("List of what is in the box");
    txtList_->installEventFilter(this);
    for (QLineEdit* const field : {txtPrice_, txtList_})
        field->setFixedHeight(field->sizeHint().height()); // whatever frame marks it
    cmdFill_ = NewButton("cmdFillSet", "&Fill the Box");
    cmdFill_->setToolTip("Have the box hold what the list names, and nothing else");
    const auto enable = [this] { cmdFill_->setEnabled(HasList()); };
    enable();
    connect(txtList_, &QLineEdit::textChanged, this, enable);
    connect(txtList_, &QLineEdit::textChanged, this, [this] { ShowFault(*txtList_, QString()); });
    connect(cmdFill_, &QPushButton::clicked, this, [this] { FillFromList(); });
    auto* const row = new QHBoxLayout;
    row->addWidget(txtList_);
    row->addWidget(cmdFill_);
    return row;
}

/// Enter in the list fills the box, and does not save.
bool frmSets::eventFilter(QObject* watched, QEvent* event) {
    if (watched != txtList_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    cmdFill_->click();
    return true;
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
    for (QWidget* const field : std::initializer_list<QWidget*>{txtName_, txtPrice_, txtList_, txtFind_, lstPieces_})
        field->setEnabled(isAny);
    txtList_->clear();
    txtFind_->clear();
    const BoxedSet none;
    const BoxedSet& set = isAny ? sets_[static_cast<std::size_t>(shown_)] : none;
    txtName_->setText(Shown(set.Name));
    txtPrice_->setText(Amount(set.Price));
    IsPriceRight();
    ListPieces(set.Pieces);
}

void frmSets::ListPieces(const std::map<int, int>& counts) {
    {
        const QSignalBlocker quiet(lstPieces_);
        lstPieces_->clear();
        lstPieces_->ForgetEntries();
        lstPieces_->ForgetFaults();
        std::vector<int> rows = session_.Catalogue.ProductRows();
        std::stable_partition(rows.begin(), rows.end(), [&](int row) { return counts.contains(row); });
        for (const int row : rows) {
            const auto found = counts.find(row);
            const int count = found == counts.end() ? 0 : found->second;
            const CatalogueEntry& product = session_.Catalogue[row];
            auto* const item = new QTreeWidgetItem(
                lstPieces_, {Shown(ProductCode(product.Code)), Shown(product.LongName), QString::number(count)});
            item->setData(Code, Qt::UserRole, row);
            item->setFlags(item->flags() | Qt::ItemIsEditable);
        }
    }
    Find();
    ShowContents();
}

void frmSets::Find() {
    lstPieces_->EndEntry();
    for (int at = 0; at < lstPieces_->topLevelItemCount(); ++at) {
        QTreeWidgetItem& line = *lstPieces_->topLevelItem(at);
        line.setHidden(!HoldsText(line, Name, txtFind_->text()));
    }
}

void frmSets::ShowContents() {
    const QSignalBlocker quiet(lstPieces_);
    Cents singly = 0;
    int pieces = 0;
    bool arePriced = true;
    for (int at = 0; at < lstPieces_->topLevelItemCount(); ++at) {
        QTreeWidgetItem& line = *lstPieces_->topLevelItem(at);
        const int count = line.text(Count).toInt();
        QFont font = lstPieces_->font();
        font.setBold(count > 0);
        for (const int column : {Code, Name, Count})
            line.setFont(column, font);
        if (count == 0) continue;
        const Cents price = CentsOf(session_.Project.Stock[RowOf(line)].Price);
        pieces += count;
        singly += price * count;
        arePriced = arePriced && price > 0;
    }
    QString contents = Shown(CountText(pieces, "piece")) + " in the box";
    if (pieces > 0 && arePriced)
        contents += ", bought singly " + Amount(singly, session_.Project.Preferences.Units.Currency);
    const QString fault = lstPieces_->Fault();
    lblContents_->setText(fault.isEmpty() ? contents : "Not counted yet: " + fault);
}

bool frmSets::HasList() const { return !txtList_->text().trimmed().isEmpty(); }

bool frmSets::FillFromList() {
    try {
        ListPieces(ParseProductList(session_.Catalogue, txtList_->text().toStdString()));
    } catch (const Fault& fault) {
        ShowFault(*txtList_,
                  DetailOf(fault) + "; codes with their counts are meant, such as " + txtList_->placeholderText());
        txtList_->setFocus();
        txtList_->selectAll();
        return false;
    }
    txtList_->clear();
    return true;
}

void frmSets::TakeFields(BoxedSet& set) const {
    set.Name = txtName_->text().toStdString();
    if (WhyNoPrice(txtPrice_->text()).isEmpty()) set.Price = CentsOf(NumberIn(txtPrice_->text()));
    for (int line = 0; line < lstPieces_->topLevelItemCount(); ++line)
        KeepCount(*lstPieces_->topLevelItem(line), set);
}

void frmSets::ShowFault(QLineEdit& field, const QString& why) {
    MarkWrong(field, !why.isEmpty());
    field.setAccessibleDescription(why);
    if (!why.isEmpty()) {
        wrong_ = &field;
        PlaceFault();
    } else if (wrong_ == &field) {
        wrong_ = nullptr;
        lblFault_->hide();
    }
}

/// Over what is below, so that nothing gives way to it.
void frmSets::PlaceFault() {
    const QRect field(wrong_->mapTo(this, QPoint()), wrong_->size());
    lblFault_->Say(field, wrong_->accessibleDescription(), Qt::LeftEdge);
}

void frmSets::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (wrong_ != nullptr) PlaceFault();
}

bool frmSets::IsPriceRight() {
    const QString why = WhyNoPrice(txtPrice_->text());
    ShowFault(*txtPrice_, why);
    return why.isEmpty();
}

/// The list of sets goes back to the one whose fields are to be mended.
void frmSets::StayWithSet() {
    QTimer::singleShot(0, this, [this] { // not within the list's own handling of the click
        const QSignalBlocker quiet(lstSets_);
        lstSets_->setCurrentRow(shown_);
    });
}

bool frmSets::KeepSet() {
    if (shown_ < 0 || shown_ >= static_cast<int>(sets_.size())) return true;
    lstPieces_->EndEntry();
    if (HasList() && !FillFromList()) return false;
    BoxedSet& set = sets_[static_cast<std::size_t>(shown_)];
    TakeFields(set);
    if (QListWidgetItem* const entry = lstSets_->item(shown_)) entry->setText(Shown(set.Name));
    if (!IsPriceRight()) {
        txtPrice_->setFocus();
        return false;
    }
    txtFind_->setText(lstPieces_->Fault().isEmpty() ? txtFind_->text() : QString()); // to be seen
    return !lstPieces_->OpenFault();
}

bool frmSets::IsChanged() const {
    BoxedSets now = sets_;
    if (shown_ >= 0) TakeFields(now[static_cast<std::size_t>(shown_)]);
    const bool isWrong = !WhyNoPrice(txtPrice_->text()).isEmpty() || !lstPieces_->Fault().isEmpty();
    return isWrong || HasList() || now != before_;
}

void frmSets::reject() {
    constexpr const char* question = "The changes to your boxed sets are not saved. Close without them?";
    if (!IsChanged() || session_.Prompts.AskWhether(question, "Close &Without Them") == Answer::Ok) QDialog::reject();
}

/// The sets but for the examples that were left as they are, where there are others.
BoxedSets frmSets::WithoutExamples() const {
    BoxedSets own = sets_;
    std::erase_if(own, [this](const BoxedSet& set) { return std::ranges::find(before_, set) != before_.end(); });
    return own.empty() ? sets_ : own;
}

void frmSets::Save() {
    if (!KeepSet()) return;
    const bool saved = session_.Do([&] {
        const std::string text = SetsText(session_.Catalogue, areExamples_ ? WithoutExamples() : sets_);
        ParseSets(session_.Catalogue, text, SetsName); // what could not be read again is told, and not written
        ReplaceFile(file_, text);
    });
    if (saved) accept();
}

} // namespace pistaro
