#include "ui/piece_button.h"

#include "editor/palette_pieces.h"
#include "ui/named_controls.h"
#include "ui/piece_badge.h"
#include "ui/piece_icon.h"
#include "ui/tip_place.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int Margin = 4;
constexpr int PictureHeight = 40;
constexpr double SmallLetters = 0.78; ///< of the font's size
constexpr const char* WidestCaption = "10105";

QString InTwoLines(const CatalogueEntry& piece) {
    QString name = Shown(PieceName(piece));
    const qsizetype blank = name.indexOf(' ');
    return blank < 0 ? name : name.replace(blank, 1, '\n');
}

QString HandOf(const CatalogueEntry& piece) {
    const char hand = Hand(piece.Code);
    return hand == 'L' ? ", left" : hand == 'R' ? ", right" : "";
}

} // namespace

PieceButton::PieceButton(const CatalogueEntry& piece, const Catalogue& catalogue, QWidget* parent)
    : QToolButton(parent), name_(InTwoLines(piece)), nameWidth_(WidestName(catalogue)) {
    setIcon(PieceIcon(piece, catalogue));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setAccessibleName(Shown(std::string(ProductCode(piece.Code)) + ", " + PieceName(piece)) + HandOf(piece));
}

void PieceButton::ShowLeft(int left, const std::string& words) {
    left_ = left;
    const QString folded = foldOut_ == nullptr ? "" : "; Alt+Down opens its special pieces";
    setAccessibleDescription(Shown(words) + folded);
    update();
}

void PieceButton::SetFoldOut(QMenu& menu) {
    foldOut_ = &menu;
    setMouseTracking(true);
    updateGeometry();
}

QFont PieceButton::SmallFont() const {
    QFont small = font();
    if (small.pointSizeF() > 0)
        small.setPointSizeF(small.pointSizeF() * SmallLetters);
    else
        small.setPixelSize(static_cast<int>(small.pixelSize() * SmallLetters));
    return small;
}

int PieceButton::WidestName(const Catalogue& catalogue) const {
    const QFontMetrics letters(SmallFont());
    int widest = 0;
    for (const CatalogueEntry& piece : catalogue) {
        if (!piece.IsBasic()) continue;
        for (const QString& line : InTwoLines(piece).split('\n'))
            widest = std::max(widest, letters.horizontalAdvance(line));
    }
    return widest;
}

QSize PieceButton::sizeHint() const {
    const int small = QFontMetrics(SmallFont()).height();
    const int width = std::max({PictureHeight, fontMetrics().horizontalAdvance(WidestCaption), nameWidth_});
    const int lines = fontMetrics().height() + 2 * small + (foldOut_ == nullptr ? 0 : small + Margin + 2);
    return {width + 2 * Margin, PictureHeight + lines + 2 * Margin};
}

QRect PieceButton::FoldOutPlace() const {
    if (foldOut_ == nullptr) return {};
    const int height = QFontMetrics(SmallFont()).height() + Margin;
    return {1, this->height() - height - 1, width() - 2, height};
}

bool PieceButton::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const bool isFoldOut = FoldOutPlace().contains(static_cast<const QHelpEvent&>(*event).pos());
        ShowTipBeside(RowOfColumn(*this, rect()), isFoldOut ? "Special pieces of this shape (Alt+↓)" : toolTip(),
                      *this);
        return true;
    }
    return QToolButton::event(event);
}

void PieceButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && FoldOutPlace().contains(event->position().toPoint())) return Open();
    QToolButton::mousePressEvent(event);
}

void PieceButton::mouseMoveEvent(QMouseEvent* event) {
    if (foldOut_ != nullptr) update(FoldOutPlace());
    QToolButton::mouseMoveEvent(event);
}

void PieceButton::keyPressEvent(QKeyEvent* event) {
    if (foldOut_ != nullptr && event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier) return Open();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click(); // as in the list of found ones
    QToolButton::keyPressEvent(event);
}

void PieceButton::Open() {
    if (isEnabled()) foldOut_->popup(mapToGlobal(QPoint(0, height())));
}

void PieceButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton bevel;
    initStyleOption(&bevel);
    bevel.icon = QIcon();
    bevel.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, bevel);
    const QRect inside = rect().adjusted(1, Margin, -1, -Margin);
    const QRect picture(inside.left(), inside.top(), inside.width(), PictureHeight);
    icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const QRect caption(inside.left(), picture.bottom() + 1, inside.width(), fontMetrics().height());
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.drawText(caption, Qt::AlignCenter, text());
    painter.setFont(SmallFont());
    const QRect name(inside.left(), caption.bottom() + 1, inside.width(), 2 * painter.fontMetrics().height());
    painter.drawText(name, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, name_);
    PaintBadge(painter, QRectF(rect()).adjusted(2, 2, -2, -2), left_, palette());
    if (foldOut_ != nullptr) PaintFoldOut(painter);
}

void PieceButton::PaintFoldOut(QPainter& painter) const {
    const QRect place = FoldOutPlace();
    const bool under = underMouse() && place.contains(mapFromGlobal(QCursor::pos()));
    QColor ground = palette().color(QPalette::ButtonText);
    ground.setAlphaF(under ? 0.22F : 0.10F);
    painter.fillRect(place, ground);
    painter.drawText(place, Qt::AlignCenter, QString("%1 special ▾").arg(foldOut_->actions().size()));
}

} // namespace pistaro
