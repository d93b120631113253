#include "ui/fold_out.h"

#include "editor/palette_pieces.h"
#include "ui/contrast_style.h"
#include "ui/named_controls.h"
#include "ui/piece_badge.h"
#include "ui/piece_icon.h"

namespace pistaro {

namespace {

/// Menus have small icons, in which pieces could not be told apart.
class PieceMenuStyle : public ContrastStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_SmallIconSize ? PieceIconSide : ContrastStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

FoldOut::FoldOut(Session& session, CommandControls& controls, const std::string& basic, const std::vector<int>& rows,
                 QWidget* parent)
    : QMenu(parent), session_(session), rows_(rows) {
    setObjectName("mnuFoldOut");
    setProperty("Tag", Shown(basic));
    setAccessibleName("Special pieces");
    setToolTipsVisible(true);
    auto* const style = new PieceMenuStyle;
    style->setParent(this);
    setStyle(style);
    for (const int row : rows_)
        controls.AddEntry(*this, "special " + session_.Catalogue[row].Code);
    connect(this, &QMenu::aboutToShow, this, [this] { ShowPieces(); });
}

void FoldOut::ShowPieces() {
    const Project& project = session_.Project;
    const UsedCounts used = CountUsed(session_.Catalogue, project.Design.Circuit);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        const CatalogueEntry& piece = session_.Catalogue[rows_[at]];
        const int left = LeftInBox(session_.Catalogue, used, project.Stock, piece);
        actions()
            .at(static_cast<qsizetype>(at))
            ->setIcon(BadgedPieceIcon(piece, session_.Catalogue, left, *parentWidget()));
    }
}

} // namespace pistaro
