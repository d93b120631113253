// What the design's pieces cost, beside the drawing: used, owned, missing, price and sum of each product.
#pragma once

#include "commands/session.h"
#include "model/money.h"
#include "ui/elided_label.h"
#include "ui/field_table.h"

#include <QDockWidget>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <vector>

namespace pistaro {

/// Counts when it is shown, and after each change while it is. Owned counts and prices that are edited here are saved
/// where the loose-track dialog saves them.
class MoneyDock : public QDockWidget {
public:
    explicit MoneyDock(Session& session);

    void Refresh(const Changes& changes);

    /// Shows it and opens the first field for a price that something missing lacks.
    void EnterPrices();

protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Column { Code, Name, Used, OwnedColumn, Missing, Price, Sum };

    /// What a product's line shows, in the order of its columns from `Used` on.
    using Figures = std::array<Cents, 5>;

    QPushButton* NewCommandButton(const char* name, const QString& caption, const char* id);
    void SetUpList();
    void CountLater();
    void Count();
    void ShowHeadings();
    /// Lists other products than those that stand there, or in another order. A line that is kept stays the current
    /// one.
    void List();
    std::vector<int> InOrder(std::vector<int> rows) const;
    Figures FiguresOf(int row) const;
    void ShowProduct(QTreeWidgetItem& line, int row) const;
    void ShowTotals();
    QString WholeDesign() const;
    /// Tells why an entry is not saved; and who owns nothing yet and knows no price what to do.
    void ShowHint();
    /// Saves all of what was entered. A fault is told and saves none of it, false then.
    bool Keep(const FieldTable::Step& step);

    Session& session_;
    FieldTable* const list_;
    ElidedLabel* const pieces_;
    QLabel* const total_;
    ElidedLabel* const hint_;
    std::vector<int> used_;     ///< of each product, by head row
    std::vector<int> products_; ///< those that are used, in the order of the catalogue
    std::vector<int> rows_;     ///< the same as they are listed
    bool waiting_ = false;      ///< a count is due
    bool isKeeping_ = false;    ///< the stock changes by what is entered here
};

} // namespace pistaro
