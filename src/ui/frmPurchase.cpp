#include "ui/frmPurchase.h"

#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QHeaderView>
#include <QVBoxLayout>

namespace pistaro {

namespace {

constexpr QSize UsualSize(560, 380);

/// Text that may be marked, of no markup: names of sets are their user's.
QLabel* NewText(const char* name, const QString& text) {
    auto* const label = Named(new QLabel(text), name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

frmPurchase::frmPurchase(Session& session, const PurchaseReport& report, QWidget* parent)
    : QDialog(parent), session_(session), report_(report) {
    setObjectName("frmPurchase");
    setWindowTitle("Cheapest Purchase");
    QPushButton* const cmdClose = NewButton("cmdClosePurchase", "Close");
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* const column = new QVBoxLayout(this);
    if (!report.Lines.empty()) {
        column->addWidget(Lines(), 1);
        resize(UsualSize);
    }
    column->addWidget(Total());
    column->addWidget(Remarks());
    column->addLayout(ButtonRow({Sets(), Copy(), cmdClose}));
}

QTreeWidget* frmPurchase::Lines() const {
    auto* const list = Named(new QTreeWidget, "lstPurchase");
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setAccessibleName("What to buy");
    list->setHeaderLabels({"Count", "Box or piece", "Price", "Sum"});
    for (const PurchaseLine& line : report_.Lines) {
        auto* const item = new QTreeWidgetItem(
            list, {QString::number(line.Count), Shown(line.Name), Amount(line.Price), Amount(line.Price * line.Count)});
        for (const int number : {0, 2, 3})
            item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
    }
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    return list;
}

QLabel* frmPurchase::Total() const {
    const auto priced = [&](Cents cents) { return Amount(cents) + " " + Shown(CurrencySign(report_.Currency)); };
    const QString above = report_.AboveBound == 0 ? "" : "at most " + priced(report_.AboveBound) + " above ";
    const QString without = report_.HasUnsold ? " without what has no price" : "";
    QLabel* const label = NewText(
        "lblPurchaseTotal", report_.Lines.empty()
                                ? "What is missing has no price yet. View ▸ Stock and Price takes prices."
                                : "Total " + priced(report_.Total) + without + ", " + above + "the cheapest there is.");
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QLabel* frmPurchase::Remarks() const {
    QLabel* const label = NewText("lblPurchaseRemarks", Shown(report_.Remarks).trimmed());
    label->setVisible(!report_.Remarks.empty());
    return label;
}

QPushButton* frmPurchase::Sets() {
    QPushButton* const cmdSets = NewButton("cmdBoxedSets", "&Boxed Sets…");
    cmdSets->setToolTip("Tell what your shop sells in boxes, and look again afterwards");
    connect(cmdSets, &QPushButton::clicked, this, [this] {
        accept();
        session_.Windows->ShowSets();
    });
    return cmdSets;
}

QPushButton* frmPurchase::Copy() {
    QPushButton* const cmdCopy = NewButton("cmdCopyPurchase", "&Copy");
    cmdCopy->setToolTip("Put the list on the clipboard, as text");
    connect(cmdCopy, &QPushButton::clicked, this,
            [this] { session_.Windows->PutOnClipboard({.Text = PurchaseText(report_), .Png = {}, .Svg = {}}); });
    return cmdCopy;
}

} // namespace pistaro
