#include "ui/frmPurchase.h"

#include "money/purchase_text.h"
#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QHeaderView>
#include <QVBoxLayout>

namespace pistaro {

namespace {

constexpr QSize UsualSize(560, 380);

/// Text that may be marked, of no markup: names of sets are their user's.
QLabel* NewText(const char* name, const std::string& text) {
    auto* const label = Named(new QLabel(Shown(text)), name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

frmPurchase::frmPurchase(Session& session, const Purchase& purchase, const BoxedSets& sets, QWidget* parent)
    : QDialog(parent), session_(session), purchase_(purchase), sets_(sets) {
    setObjectName("frmPurchase");
    setWindowTitle("Cheapest Purchase");
    QPushButton* const cmdSets = NewButton("cmdBoxedSets", "&Boxed Sets…");
    QPushButton* const cmdCopy = NewButton("cmdCopyPurchase", "&Copy");
    QPushButton* const cmdClose = NewButton("cmdClosePurchase", "Close");
    cmdSets->setToolTip("Tell what your shop sells in boxes, and look again afterwards");
    cmdCopy->setToolTip("Put the list on the clipboard, as text");
    cmdClose->setDefault(true);
    connect(cmdSets, &QPushButton::clicked, this, [this] {
        accept();
        session_.Windows->ShowSets();
    });
    connect(cmdCopy, &QPushButton::clicked, this, [this] { Copy(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* const column = new QVBoxLayout(this);
    QTreeWidget* const lines = Lines();
    const bool hasLines = lines->topLevelItemCount() > 0;
    column->addWidget(lines, 1);
    lines->setVisible(hasLines);
    column->addWidget(Total(hasLines));
    column->addWidget(Remarks());
    column->addLayout(ButtonRow({cmdSets, cmdCopy, cmdClose}));
    if (hasLines) resize(UsualSize);
}

QTreeWidget* frmPurchase::Lines() const {
    auto* const list = Named(new QTreeWidget, "lstPurchase");
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setAccessibleName("What to buy");
    list->setHeaderLabels({"Count", "Box or piece", "Price", "Sum"});
    for (const PurchaseLine& line : PurchaseLines(session_.Catalogue, session_.Project, sets_, purchase_)) {
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

QLabel* frmPurchase::Total(bool hasLines) const {
    const std::string& currency = session_.Project.Preferences.Units.Currency;
    const std::string text = hasLines ? "Total " + Amount(purchase_.Total).toStdString() + " " +
                                            CurrencySign(currency) + ", " + PurchaseProof(purchase_, currency)
                                      : "What is missing has no price yet. View ▸ Stock and Price takes prices.";
    QLabel* const label = NewText("lblPurchaseTotal", text);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QLabel* frmPurchase::Remarks() const {
    const std::string text = PurchaseRemarks(session_.Catalogue, session_.Project, purchase_);
    QLabel* const label = NewText("lblPurchaseRemarks", text.substr(0, text.find_last_not_of('\n') + 1));
    label->setVisible(!text.empty());
    return label;
}

void frmPurchase::Copy() const {
    session_.Do([&] {
        const std::string text = PurchaseText(session_.Catalogue, session_.Project, sets_, purchase_);
        session_.Windows->PutOnClipboard({.Text = text, .Png = {}, .Svg = {}});
    });
}

} // namespace pistaro
