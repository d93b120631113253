// What the design's pieces cost, beside the drawing: used, owned, missing, price and sum of each product.
#pragma once

#include "commands/session.h"
#include "ui/panel_list.h"

#include <QDockWidget>
#include <QLabel>

#include <vector>

namespace pistaro {

/// Counts when it is shown, and after each change while it is. Owned counts and prices that are edited here are saved
/// where the loose-track dialog saves them.
class MoneyDock : public QDockWidget {
public:
    explicit MoneyDock(Session& session);

    void Refresh(const Changes& changes);

protected:
    void showEvent(QShowEvent* event) override;

private:
    enum Column { Code, Name, Used, OwnedColumn, Missing, Price, Sum, ColumnCount };

    void CountLater();
    void Count();
    void AddProduct(int row, int used);
    void Edited(const QTreeWidgetItem& item, int column);

    Session& session_;
    PanelList* const list_;
    QLabel* const total_;
    bool waiting_ = false; ///< a count is due
};

} // namespace pistaro
