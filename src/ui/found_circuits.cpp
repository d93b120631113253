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
constexpr int Lines = 5; ///< of figures, two in each

/// A picture with its figures below in two columns, parted by the first comma of each line, and a box to be ticked in
/// the picture's corner.
class CardPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static QSize PictureSize(const QFontMetrics& letters) {
        const int width = letters.horizontalAdvance("lanes differ 149.6 cm  score 0.00");
        return {width, width * 3 / 4};
    }

    /// Of a card's box to be ticked, in the card.
    static QRect TickRect(const QRect& card, const QFontMetrics& letters, const QStyle& style) {
        const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth), style.pixelMetric(QStyle::PM_IndicatorHeight));
        const int right = card.left() + Margin + PictureSize(letters).width();
        constexpr int inside = 4;
        return {QPoint(right - inside - size.width(), card.top() + Margin + inside), size};
    }

    /// Where a click ticks it: a little more than can be seen.
    static QRect TickTarget(const QRect& card, const QFontMetrics& letters, const QStyle& style) {
        constexpr int more = 6;
        return TickRect(card, letters, style).adjusted(-more, -more, more, more);
    }

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override {
        const bool isRelease = event->type() == QEvent::MouseButtonRelease;
        if (!isRelease && event->type() != QEvent::MouseButtonPress)
            return QStyledItemDelegate::editorEvent(event, model, option, index); // the space bar ticks
        const auto& mouse = dynamic_cast<const QMouseEvent&>(*event);
        const QRect target = TickTarget(option.rect, option.fontMetrics, *option.widget->style());
        if (mouse.button() != Qt::LeftButton || !target.contains(mouse.position().toPoint())) return false;
        const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        if (isRelease) model->setData(index, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        return true;
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
        PaintTick(*painter, card);
    }

private:
    static void PaintTick(QPainter& painter, const QStyleOptionViewItem& card) {
        QStyleOptionButton box;
        box.rect = TickRect(card.rect, card.fontMetrics, *card.widget->style());
        box.palette = card.palette;
        box.state = QStyle::State_Enabled | (card.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
        card.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, card.widget);
    }
};

} // namespace

FoundCircuits::FoundCircuits(Session& session)
    : session_(session), cmdShowFirst_(NewButton("cmdShowFirst", "↑ A better one stands first now")) {
    setObjectName("lstCircuits");
    setAccessibleName("Circuits");
    setToolTip("Click a circuit to see it large, tick those that you want to keep; a double click opens one");
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
    cmdShowFirst_->setParent(this);
    cmdShowFirst_->setFocusPolicy(Qt::NoFocus); // Home does the same
    cmdShowFirst_->hide();
    connect(cmdShowFirst_, &QPushButton::clicked, this, [this] { scrollToTop(); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { OfferFirst(); });
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        hasChosen_ = true;
        ChosenChanged();
    });
    connect(this, &QListWidget::currentItemChanged, this, [this] { ChosenChanged(); });
    connect(this, &QListWidget::itemChanged, this, [this](const QListWidgetItem* line) { Tick(*line); });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { Opened(); });
}

void FoundCircuits::Begin(const Design& room, std::size_t kept) {
    const QSignalBlocker quiet(this);
    room_ = room;
    kept_ = kept;
    pictures_.clear();
    ticked_.clear();
    clear();
    hasChosen_ = false;
    first_.reset();
    OfferFirst();
}

void FoundCircuits::Show(const std::vector<FoundCircuit>& found, const std::vector<std::size_t>& places,
                         const ScoreWeights& weights) {
    const QSignalBlocker quiet(this);
    setAutoScroll(false); // to what is current
    pictures_.resize(found.size());
    const std::optional<std::size_t> inView = InView();
    const std::optional<Sight> seen = Seen();
    std::vector<std::size_t> chosen = Chosen();
    if (!hasChosen_ && !places.empty()) chosen = {places.front()};
    const std::vector<std::size_t> shown = WithThoseThatStay(places, chosen);
    while (count() > static_cast<int>(shown.size()))
        delete takeItem(count() - 1);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const int row = static_cast<int>(i);
        if (row == count()) addItem(QString());
        Fill(*item(row), found[shown[i]], shown[i], weights);
        item(row)->setSelected(std::ranges::find(chosen, shown[i]) != chosen.end());
    }
    const int current = hasChosen_ && inView ? RowOf(*inView) : std::min(0, count() - 1);
    setCurrentRow(current, QItemSelectionModel::NoUpdate);
    KeepInSight(seen);
    setAutoScroll(true);
}

/// What is ticked or was chosen does not go when it is no longer among the best.
std::vector<std::size_t> FoundCircuits::WithThoseThatStay(std::vector<std::size_t> places,
                                                          const std::vector<std::size_t>& chosen) const {
    std::set<std::size_t> stay = ticked_;
    stay.insert(chosen.begin(), chosen.end());
    for (const std::size_t place : places)
        stay.erase(place);
    places.insert(places.end(), stay.begin(), stay.end());
    return places;
}

/// What who has scrolled looks at: the circuit that is shown large, if its card can be seen, else the first whole card.
std::optional<FoundCircuits::Sight> FoundCircuits::Seen() const {
    if (IsAtTop()) return std::nullopt;
    const auto top = [&](int row) { return visualItemRect(item(row)).top(); };
    const auto inView = InView();
    if (inView && viewport()->rect().intersects(visualItemRect(item(RowOf(*inView)))))
        return Sight{*inView, top(RowOf(*inView))};
    for (int row = 0; row < count(); ++row) {
        if (top(row) >= 0) return Sight{PlaceOf(row), top(row)};
    }
    return std::nullopt;
}

void FoundCircuits::KeepInSight(const std::optional<Sight>& seen) {
    const int row = seen ? RowOf(seen->Place) : -1;
    if (row >= 0) {
        QScrollBar& bar = *verticalScrollBar();
        bar.setValue(bar.value() + visualItemRect(item(row)).top() - seen->Top);
    }
    OfferFirst();
}

bool FoundCircuits::IsAtTop() const { return verticalScrollBar()->value() == 0; }

/// Tells who has scrolled that another circuit has become the first one.
void FoundCircuits::OfferFirst() {
    if (count() == 0 || IsAtTop()) first_ = count() == 0 ? std::nullopt : std::optional(PlaceOf(0));
    cmdShowFirst_->setVisible(count() > 0 && first_ != PlaceOf(0));
}

/// Only a click of the user on a card's box changes what is ticked; whatever else the card shows is filled in quietly.
void FoundCircuits::Tick(const QListWidgetItem& line) {
    const std::size_t place = line.data(PlaceRole).toULongLong();
    if (line.checkState() == Qt::Checked) {
        ticked_.insert(place);
    } else {
        ticked_.erase(place);
    }
    ChosenChanged();
}

void FoundCircuits::Fill(QListWidgetItem& line, const FoundCircuit& found, std::size_t place,
                         const ScoreWeights& weights) {
    const LaidCircuit& circuit = found.Circuit;
    if (pictures_[place].isNull())
        pictures_[place] =
            QPixmap::fromImage(WorkPicture(session_.Catalogue, DesignOf(circuit), session_.Project.Preferences,
                                           iconSize(), devicePixelRatioF(), kept_));
    line.setData(PlaceRole, static_cast<qulonglong>(place));
    line.setCheckState(ticked_.contains(place) ? Qt::Checked : Qt::Unchecked);
    line.setIcon(pictures_[place]);
    line.setText(Shown(UseText(circuit) + "\n" + LengthAndPriceText(session_, circuit) + "\n" +
                       SizeAndStraightText(session_, circuit) + "\n" + CornersText(session_, circuit) + "\n" +
                       LanesAndScoreText(session_, circuit, weights)));
}

Design FoundCircuits::DesignOf(const LaidCircuit& circuit) const {
    Design design = room_;
    design.Circuit.Tracks.front() = circuit.Track;
    return design;
}

std::size_t FoundCircuits::PlaceOf(int row) const { return item(row)->data(PlaceRole).toULongLong(); }

/// Of the card of that circuit; -1 where it has none.
int FoundCircuits::RowOf(std::size_t place) const {
    for (int row = 0; row < count(); ++row) {
        if (PlaceOf(row) == place) return row;
    }
    return -1;
}

std::vector<std::size_t> FoundCircuits::Chosen() const {
    std::vector<std::size_t> chosen;
    for (int row = 0; row < count(); ++row) {
        if (item(row)->isSelected()) chosen.push_back(PlaceOf(row));
    }
    return chosen;
}

std::optional<std::size_t> FoundCircuits::InView() const {
    if (currentItem() != nullptr && currentItem()->isSelected()) return PlaceOf(currentRow());
    const std::vector<std::size_t> chosen = Chosen();
    return chosen.empty() ? std::nullopt : std::optional(chosen.front());
}

std::vector<std::size_t> FoundCircuits::ToKeep() const {
    std::vector<std::size_t> ticked;
    for (int row = 0; row < count(); ++row) {
        if (ticked_.contains(PlaceOf(row))) ticked.push_back(PlaceOf(row));
    }
    return ticked.empty() ? Chosen() : ticked;
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
    QRect lines = painter.boundingRect(place, Qt::AlignLeft | Qt::TextWordWrap, hint_);
    lines.moveCenter(place.center());
    painter.drawText(lines, Qt::AlignLeft | Qt::TextWordWrap, hint_);
}

void FoundCircuits::resizeEvent(QResizeEvent* event) {
    QListWidget::resizeEvent(event);
    constexpr int below = 6;
    const QSize size = cmdShowFirst_->sizeHint();
    cmdShowFirst_->setGeometry((viewport()->width() - size.width()) / 2, below, size.width(), size.height());
}

/// Two quick clicks on its box open no circuit.
void FoundCircuits::mouseDoubleClickEvent(QMouseEvent* event) {
    const QListWidgetItem* const line = itemAt(event->position().toPoint());
    const bool isOnBox =
        line != nullptr &&
        CardPainter::TickTarget(visualItemRect(line), fontMetrics(), *style()).contains(event->position().toPoint());
    if (isOnBox) return QListWidget::mousePressEvent(event);
    QListWidget::mouseDoubleClickEvent(event);
}

void FoundCircuits::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QListWidget::keyPressEvent(event);
    Opened();
}

} // namespace pistaro
