// A palette's button: its piece, what is left of it, its code with the name below, and the fold-out of special pieces.
#pragma once

#include "catalogue/catalogue.h"

#include <QMenu>
#include <QToolButton>

namespace pistaro {

class PieceButton : public QToolButton {
public:
    PieceButton(const CatalogueEntry& piece, const Catalogue& catalogue, QWidget* parent);

    /// Shows how many of the piece's shape are left, red below 0, and says so in words.
    void ShowLeft(int left, const std::string& words);

    /// Opens these special pieces at its lower edge, and by Alt+Down.
    void SetFoldOut(QMenu& menu);

    /// Where a press opens them; empty where there are none.
    QRect FoldOutPlace() const;

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont SmallFont() const;
    int WidestName(const Catalogue& catalogue) const;
    void Open();
    void PaintFoldOut(QPainter& painter) const;

    const QString name_; ///< in two lines
    const int nameWidth_;
    int left_ = 0;
    QMenu* foldOut_ = nullptr;
};

} // namespace pistaro
