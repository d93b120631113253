// The list of all products with how many pieces of each there are, to be edited.
#pragma once

#include "search/piece_box.h"

#include <QTreeWidget>

namespace pistaro {

class PieceCounts : public QTreeWidget {
public:
    explicit PieceCounts(const Catalogue& catalogue);

    void Show(const PieceBox& box);
    PieceBox Box() const;

private:
    const Catalogue& catalogue_;
};

} // namespace pistaro
