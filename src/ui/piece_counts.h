// The list of all products with how many pieces of each there are, to be edited.
#pragma once

#include "search/piece_box.h"

#include <QTreeWidget>

#include <functional>

namespace pistaro {

class PieceCounts : public QTreeWidget {
public:
    explicit PieceCounts(const Catalogue& catalogue);

    std::function<void()> Changed; ///< called when other pieces are in the box; may be empty

    void Show(const PieceBox& box);
    PieceBox Box() const;

    /// Shows beside each count how many are owned, which a click makes the count; where none are, names have the room.
    void ShowOwned(const PieceBox& owned);

    /// Lists the products whose code or name holds the text; for an empty one `all`, or those that are owned or in the
    /// box, if there are any. The first that another text finds becomes the current one; one that is not listed never
    /// is.
    void Filter(const QString& text, bool all);

    /// Whether a product is owned or in the box.
    bool HasMine() const;

    /// Goes to the first count that is listed, to be typed.
    void EditFirst();

protected:
    void paintEvent(QPaintEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowCount(QTreeWidgetItem& line, int count);
    void Click(QTreeWidgetItem& line, int column);
    void GoTo(QTreeWidgetItem* line);
    void TellChange();

    const Catalogue& catalogue_;
    QString filter_;
};

} // namespace pistaro
