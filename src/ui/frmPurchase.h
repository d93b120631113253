// The cheapest purchase of what is missing: what to take home from the shop.
#pragma once

#include "commands/session.h"
#include "model/boxed_set.h"
#include "money/purchase.h"

#include <QDialog>
#include <QLabel>
#include <QTreeWidget>

namespace pistaro {

class frmPurchase : public QDialog {
public:
    frmPurchase(Session& session, const Purchase& purchase, const BoxedSets& sets, QWidget* parent);

private:
    QTreeWidget* Lines() const;
    QLabel* Total(bool hasLines) const;
    QLabel* Remarks() const;
    void Copy() const;

    Session& session_;
    const Purchase purchase_;
    const BoxedSets sets_;
};

} // namespace pistaro
