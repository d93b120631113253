// The cheapest purchase of what is missing: what to take home from the shop.
#pragma once

#include "commands/session.h"
#include "money/purchase_text.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace pistaro {

class frmPurchase : public QDialog {
public:
    frmPurchase(Session& session, const PurchaseReport& report, QWidget* parent);

private:
    QTreeWidget* Lines() const;
    void AddContents(QTreeWidgetItem& line, const PurchaseLine& box) const;
    QLabel* Boxed() const;
    QLabel* Total() const;
    QLabel* Singly() const;
    QLabel* Unsold() const;
    /// Whether prices are lacking, so that others could make another purchase.
    bool LacksPrices() const { return !report_.Unsold.empty() || !report_.BoxedCodes.empty(); }
    QLabel* Remarks() const;
    QPushButton* Prices();
    QPushButton* Sets();
    QPushButton* Copy();

    Session& session_;
    const PurchaseReport report_;
};

} // namespace pistaro
