#include "ui/found_circuits.h"

#include "commands/laying_commands.h"
#include "ui/named_controls.h"
#include "ui/work_picture.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int PlaceRole = Qt::UserRole; ///< of a card: its circuit's place among those found
constexpr int Margin = 8;
constexpr int Lines = 3; ///< of figures, two in each

/// A picture with its figures below in two columns, parted by the first comma of each line.
class CardPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static QSize PictureSize(const QFontMetrics& letters) {
        const int width = letters.horizontalAdvance("lanes differ 149.6 cm  score 0.000");
        return {width, width * 3 / 4};
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const QSize picture = PictureSize(option.fontMetrics);
        return {picture.width() + 2 * Margin, picture.height() + 3 * Margin + Lines * option.fontMetrics.height()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem card = option;
        initStyleOption(&card, index);
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        const QPalette::ColorGroup group =
            option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
        if (isChosen) painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            QStyleOptionFocusRect focus;
            focus.QStyleOption::operator=(option);
            card.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, card.widget);
        }
        const QRect inside = option.rect.adjusted(Margin, Margin, -Margin, -Margin);
        const QSize size = PictureSize(option.fontMetrics);
        card.icon.paint(painter, QRect(inside.topLeft(), size));
        painter->save();
        painter->setFont(option.font);
        painter->setPen(option.palette.color(group, isChosen ? QPalette::HighlightedText : QPalette::Text));
        QRect line(inside.left(), inside.top() + size.height() + Margin, size.width(), option.fontMetrics.height());
        for (const QString& text : index.data(Qt::DisplayRole).toString().split('\n')) {
            painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter, text.section(", ", 0, 0));
            painter->drawText(line, Qt::AlignRight | Qt::AlignVCenter, text.section(", ", 1));
            line.translate(0, line.height());
        }
        painter->restore();
    }
};

} // namespace

FoundCircuits::FoundCircuits(Session& session) : session_(session) {
    setObjectName("lstCircuits");
    setAccessibleName("Circuits");
    setToolTip("Click a circuit to see it large, and others with Ctrl or Shift; a double click opens it");
    setItemDelegate(new CardPainter(this));
    setIconSize(CardPainter::PictureSize(fontMetrics()));
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    constexpr int spacing = 3, columns = 2;
    setSpacing(spacing);
    const int card = iconSize().width() + 2 * (Margin + spacing);
    setMinimumWidth(columns * card + verticalScrollBar()->sizeHint().width() + 2 * (frameWidth() + spacing));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        hasChosen_ = true;
        ChosenChanged();
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { Opened(); });
}

void FoundCircuits::Begin(const Design& room, std::size_t kept) {
    const QSignalBlocker quiet(this);
    room_ = room;
    kept_ = kept;
    pictures_.clear();
    clear();
    hasChosen_ = false;
}

void FoundCircuits::Show(const std::vector<FoundCircuit>& found, const std::vector<std::size_t>& places,
                         const ScoreWeights& weights) {
    const QSignalBlocker quiet(this);
    pictures_.resize(found.size());
    std::vector<std::size_t> chosen = Chosen();
    if (!hasChosen_ && !places.empty()) chosen = {places.front()};
    while (count() > static_cast<int>(places.size()))
        delete takeItem(count() - 1);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const int row = static_cast<int>(i);
        if (row == count()) addItem(QString());
        Fill(*item(row), found[places[i]], places[i], weights);
        item(row)->setSelected(std::ranges::find(chosen, places[i]) != chosen.end());
    }
    if (!hasChosen_ && !places.empty()) setCurrentRow(0);
}

void FoundCircuits::Fill(QListWidgetItem& line, const FoundCircuit& found, std::size_t place,
                         const ScoreWeights& weights) {
    const LaidCircuit& circuit = found.Circuit;
    if (pictures_[place].isNull())
        pictures_[place] =
            QPixmap::fromImage(WorkPicture(session_.Catalogue, DesignOf(circuit), session_.Project.Preferences,
                                           iconSize(), devicePixelRatioF(), kept_));
    line.setData(PlaceRole, static_cast<qulonglong>(place));
    line.setIcon(pictures_[place]);
    line.setText(Shown(UseText(circuit) + "\n" + LengthAndPriceText(session_, circuit) + "\n" +
                       LanesAndScoreText(session_, circuit, weights)));
}

Design FoundCircuits::DesignOf(const LaidCircuit& circuit) const {
    Design design = room_;
    design.Circuit.Tracks.front() = circuit.Track;
    return design;
}

std::vector<std::size_t> FoundCircuits::Chosen() const {
    std::vector<std::size_t> chosen;
    for (int row = 0; row < count(); ++row) {
        if (item(row)->isSelected()) chosen.push_back(item(row)->data(PlaceRole).toULongLong());
    }
    return chosen;
}

void FoundCircuits::ShowHint(const QString& hint) {
    if (hint == hint_) return;
    hint_ = hint;
    setAccessibleDescription(hint);
    viewport()->update();
}

void FoundCircuits::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() > 0 || hint_.isEmpty()) return;
    QPainter painter(viewport());
    constexpr int margin = 24;
    const QRect place = viewport()->rect().adjusted(margin, margin, -margin, -margin);
    painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void FoundCircuits::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QListWidget::keyPressEvent(event);
    Opened();
}

} // namespace pistaro
