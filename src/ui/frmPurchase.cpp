#include "ui/frmPurchase.h"

#include "text/count_text.h"
#include "ui/named_controls.h"
#include "ui/typed_number.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

namespace pistaro {

namespace {

constexpr QSize UsualSize(620, 460);

/// Text that may be marked, of no markup: names of sets are their user's.
QLabel* NewText(const char* name, const QString& text) {
    auto* const label = Named(new QLabel(text), name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// What ends the sentence of a total that a price could change which nobody has entered yet: it is not called the
/// cheapest, and where something has no price at all it is not the whole.
std::string UnprovenRank(const PurchaseReport& report) {
    return report.Unsold.empty() ? "." : ", as far as prices are known.";
}

/// "C160, C159 and C8006".
QString Listed(const std::vector<std::string>& codes) {
    QString text;
    for (std::size_t at = 0; at < codes.size(); ++at)
        text += QString(at == 0 ? "" : at + 1 == codes.size() ? " and " : ", ") + Shown(codes[at]);
    return text;
}

/// "30 pieces of 2 kinds have no price".
QString NoPriceText(int pieces, std::size_t kinds) {
    const std::string which = CountText(pieces, "piece") + (kinds > 1 ? " of " + CountText(kinds, "kind") : "");
    return Shown(which + (pieces == 1 ? " has" : " have") + " no price");
}

int PiecesOf(const std::vector<PurchaseLine>& lines) {
    return std::accumulate(lines.begin(), lines.end(), 0,
                           [](int sum, const PurchaseLine& line) { return sum + line.Count; });
}

} // namespace

frmPurchase::frmPurchase(Session& session, const PurchaseReport& report, QWidget* parent)
    : QDialog(parent), session_(session), report_(report) {
    setObjectName("frmPurchase");
    setWindowTitle("Cheapest Purchase");
    QPushButton* const cmdPrices = Prices();
    QPushButton* const cmdClose = NewButton("cmdClosePurchase", "Close");
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(Boxed());
    column->addWidget(Total());
    column->addWidget(Singly());
    column->addWidget(Unsold());
    column->addWidget(Lines(), 1);
    column->addWidget(Remarks());
    column->addLayout(ButtonRow({cmdPrices, Sets(), Copy(), cmdClose}));
    QPushButton* const next = LacksPrices() && cmdPrices->isEnabled() ? cmdPrices : cmdClose;
    next->setDefault(true);
    next->setFocus();
    resize(UsualSize);
}

QTreeWidget* frmPurchase::Lines() const {
    auto* const list = Named(new QTreeWidget, "lstPurchase");
    list->setAlternatingRowColors(true);
    list->setAccessibleName("What to buy");
    list->setHeaderLabels(
        {"Count", "Box or piece", WithSign("Price", report_.Currency), WithSign("Sum", report_.Currency)});
    for (const int number : {0, 2, 3})
        list->headerItem()->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
    for (const PurchaseLine& line : report_.Lines) {
        auto* const item = new QTreeWidgetItem(
            list, {QString::number(line.Count), Shown(line.Name), Amount(line.Price), Amount(line.Price * line.Count)});
        for (const int number : {0, 2, 3})
            item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
        AddContents(*item, line);
    }
    const auto isBox = [](const PurchaseLine& line) { return !line.Contents.empty(); };
    list->setRootIsDecorated(std::ranges::any_of(report_.Lines, isBox));
    list->expandAll();
    for (const PurchaseLine& line : report_.Unsold) {
        auto* const item =
            new QTreeWidgetItem(list, {QString::number(line.Count), Shown(line.Name), "no price yet", QString()});
        for (const int number : {0, 2})
            item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
        item->setForeground(2, list->palette().brush(QPalette::PlaceholderText));
    }
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    return list;
}

/// What is in the boxes, and what of it nobody misses.
void frmPurchase::AddContents(QTreeWidgetItem& line, const PurchaseLine& box) const {
    for (const BoxContent& content : box.Contents) {
        const int over = content.Count - content.Needed;
        const QString use = over == 0             ? QString("all needed")
                            : content.Needed == 0 ? QString("all left over")
                                                  : QString("%1 needed, %2 left over").arg(content.Needed).arg(over);
        auto* const part = new QTreeWidgetItem(
            &line, {QString(), QString::number(content.Count) + " " + Shown(content.Name) + ": " + use});
        part->setToolTip(1, part->text(1));
        if (content.Needed == 0) part->setForeground(1, palette().brush(QPalette::PlaceholderText));
    }
}

/// What the boxes are worth.
QLabel* frmPurchase::Singly() const {
    const auto priced = [&](Cents cents) { return Amount(cents, report_.Currency); };
    const Cents saved = report_.Singly - report_.Total;
    QString text = "All in single pieces: " + priced(report_.Singly) + ". ";
    if (report_.NotSingly > 0)
        text = "All in single pieces: unknown, " +
               NoPriceText(report_.NotSingly + PiecesOf(report_.Unsold),
                           report_.BoxedCodes.size() + report_.Unsold.size()) +
               ".";
    else
        text += saved > 0 ? "You save " + priced(saved) + "." : QString("No box makes it cheaper.");
    QLabel* const label = NewText("lblPurchaseSingly", text);
    if (report_.Lines.empty()) label->hide();
    return label;
}

/// That a box may be bought for want of a price alone.
QLabel* frmPurchase::Boxed() const {
    const bool isOne = report_.BoxedCodes.size() == 1;
    QLabel* const label = NewText("lblPurchaseBoxed", Listed(report_.BoxedCodes) + (isOne ? " has" : " have") +
                                                          " no price yet, so that boxes are bought for " +
                                                          (isOne ? "it: type its price" : "them: type their prices") +
                                                          " in Stock and Price to compare.");
    if (report_.BoxedCodes.empty()) label->hide();
    return label;
}

/// The cheapest there is it is called only where no price could make another one cheaper.
QLabel* frmPurchase::Total() const {
    const auto priced = [&](Cents cents) { return Amount(cents, report_.Currency); };
    const QString above = report_.AboveBound == 0 ? "" : "at most " + priced(report_.AboveBound) + " above ";
    const QString without = report_.Unsold.empty() ? "" : " without what has no price";
    const QString rank =
        report_.BoxedCodes.empty() ? ", " + above + "the cheapest there is." : Shown(UnprovenRank(report_));
    QLabel* const label =
        NewText("lblPurchaseTotal", report_.Lines.empty() ? "What is missing has no price yet."
                                                          : "Total " + priced(report_.Total) + without + rank);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

/// What to do about prices that nobody has entered.
QLabel* frmPurchase::Unsold() const {
    const std::size_t count = report_.Unsold.size();
    const QString which = report_.Lines.empty() ? "." : " and no box, at the end of the list.";
    QLabel* const label = NewText("lblPurchaseUnsold", NoPriceText(PiecesOf(report_.Unsold), count) + which +
                                                           " Enter what one piece costs, or tell which boxed sets your "
                                                           "shop sells: the cheapest purchase follows from these.");
    if (count == 0) label->hide();
    return label;
}

QLabel* frmPurchase::Remarks() const {
    QLabel* const label = NewText("lblPurchaseRemarks", Shown(report_.Remarks).trimmed());
    if (report_.Remarks.empty()) label->hide();
    return label;
}

QPushButton* frmPurchase::Prices() {
    QPushButton* const cmdPrices = NewButton("cmdEnterPrices", "&Enter Prices");
    EnableSaving(*cmdPrices, !session_.SettingsPath.empty());
    if (cmdPrices->isEnabled()) cmdPrices->setToolTip("Go to the first of them in View ▸ Stock and Price");
    if (!LacksPrices()) cmdPrices->hide();
    connect(cmdPrices, &QPushButton::clicked, this, [this] {
        accept();
        session_.Windows->EnterPrices();
    });
    return cmdPrices;
}

QPushButton* frmPurchase::Sets() {
    QPushButton* const cmdSets = NewButton("cmdBoxedSets", "&Boxed Sets…");
    cmdSets->setToolTip("Tell what your shop sells in boxes; then the purchase is looked for again");
    connect(cmdSets, &QPushButton::clicked, this, [this] {
        accept();
        session_.Windows->ShowSets();
        session_.TryRun(*session_.Commands.Find("purchase"));
    });
    return cmdSets;
}

QPushButton* frmPurchase::Copy() {
    QPushButton* const cmdCopy = NewButton("cmdCopyPurchase", "&Copy");
    cmdCopy->setToolTip("Put the list on the clipboard, as text");
    connect(cmdCopy, &QPushButton::clicked, this, [this] {
        const std::string text =
            report_.BoxedCodes.empty() ? PurchaseText(report_) : PurchaseText(report_, UnprovenRank(report_));
        session_.Windows->PutOnClipboard({.Text = text, .Png = {}, .Svg = {}});
    });
    return cmdCopy;
}

} // namespace pistaro
