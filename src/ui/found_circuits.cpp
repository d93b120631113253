#include "ui/found_circuits.h"

#include "commands/found_figures.h"
#include "ui/circuit_card.h"
#include "ui/named_controls.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

constexpr int PlaceRole = Qt::UserRole; ///< of a card: its circuit's place among those found
constexpr int Spacing = 3;              ///< around each card
constexpr int FewestColumns = 2;

/// The picture's width in cards that lie in so many columns.
int PictureWidth(int listWidth, int columns) {
    constexpr int step = 4; // so that a picture is not drawn anew for every pixel
    const int width = (listWidth - Spacing) / columns - 2 * Spacing - 2 * CircuitCard::Margin;
    return width / step * step;
}

/// As large as goes with all cards in sight; where that is too small to read, with six of them.
int PictureWidthFor(const QSize& list, int cards, const QFontMetrics& letters, const QStyle& style) {
    constexpr int largest = 320;
    const int least = CircuitCard::LeastWidth(letters);
    constexpr int fewest = 6;
    int best = least;
    for (int columns = FewestColumns; PictureWidth(list.width(), columns) >= least; ++columns) {
        const int width = std::min(PictureWidth(list.width(), columns), largest);
        const int high = CircuitCard::CardSize(CircuitCard::PictureSize(width), letters, style).height() + 2 * Spacing;
        const auto goIn = [&](int count) { return (count + columns - 1) / columns * high <= list.height(); };
        if (goIn(cards)) return width;
        if (goIn(std::min(cards, fewest))) best = width;
    }
    return best;
}

} // namespace

FoundCircuits::FoundCircuits(Session& session)
    : session_(session), cmdShowFirst_(NewButton("cmdShowFirst", "↑ A better one stands first now")) {
    setObjectName("lstCircuits");
    setAccessibleName("Circuits");
    setToolTip("Click a circuit to see it large, tick those that you want to keep; a double click opens one");
    setItemDelegate(new CircuitCard(this));
    setIconSize(CircuitCard::PictureSize(CircuitCard::LeastWidth(fontMetrics())));
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setSpacing(Spacing);
    const int card = CircuitCard::CardSize(iconSize(), fontMetrics(), *style()).width() + 2 * Spacing;
    setMinimumWidth(FewestColumns * card + verticalScrollBar()->sizeHint().width() + 2 * (frameWidth() + Spacing));
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

void FoundCircuits::Begin(const Surroundings& around, Marks marks) {
    const QSignalBlocker quiet(this);
    around_ = around;
    marks_ = std::move(marks);
    pictures_.clear();
    ticked_.clear();
    clear();
    hasChosen_ = false;
    first_.reset();
    OfferFirst();
}

void FoundCircuits::Show(const std::vector<FoundCircuit>& found, const std::vector<RankedCircuit>& ranked) {
    const QSignalBlocker quiet(this);
    setAutoScroll(false); // to what is current
    pictures_.resize(found.size());
    const std::optional<std::size_t> inView = InView();
    const std::optional<Sight> seen = Seen();
    std::vector<std::size_t> chosen = Chosen();
    if (!hasChosen_ && !ranked.empty()) chosen = {ranked.front().Place};
    const std::vector<RankedCircuit> shown = WithThoseThatStay(ranked, chosen);
    while (count() > static_cast<int>(shown.size()))
        delete takeItem(count() - 1);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const int row = static_cast<int>(i);
        const std::size_t place = shown[i].Place;
        if (row == count()) addItem(QString());
        Fill(*item(row), found[place], shown[i]);
        item(row)->setSelected(std::ranges::find(chosen, place) != chosen.end());
    }
    const int current = hasChosen_ && inView ? RowOf(*inView) : std::min(0, count() - 1);
    setCurrentRow(current, QItemSelectionModel::NoUpdate);
    KeepInSight(seen);
    setAutoScroll(true);
}

void FoundCircuits::MakeRoomFor(int count) {
    wished_ = count;
    FitCards();
}

void FoundCircuits::FitCards() {
    const int besides = verticalScrollBar()->sizeHint().width() + 2 * frameWidth(); // whether the bar is there or not
    const QSize list(width() - besides, viewport()->height());
    const QSize size = CircuitCard::PictureSize(PictureWidthFor(list, wished_, fontMetrics(), *style()));
    if (size == iconSize()) return;
    setIconSize(size);
    ForgetPictures();
    if (count() > 0) SizeChanged();
}

void FoundCircuits::SetOutdated(bool isOutdated) {
    dynamic_cast<CircuitCard&>(*itemDelegate()).IsPale = isOutdated;
    viewport()->update();
}

/// What is ticked or was chosen does not go when it is no longer among the best.
std::vector<RankedCircuit> FoundCircuits::WithThoseThatStay(std::vector<RankedCircuit> ranked,
                                                            const std::vector<std::size_t>& chosen) const {
    std::set<std::size_t> stay = ticked_;
    stay.insert(chosen.begin(), chosen.end());
    for (const RankedCircuit& circuit : ranked)
        stay.erase(circuit.Place);
    for (const std::size_t place : stay)
        ranked.push_back({place});
    return ranked;
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

void FoundCircuits::Fill(QListWidgetItem& line, const FoundCircuit& found, const RankedCircuit& ranked) {
    const LaidCircuit& circuit = found.Circuit;
    const std::size_t place = ranked.Place;
    if (pictures_[place].isNull())
        pictures_[place] = QPixmap::fromImage(WorkPicture(session_.Catalogue, around_.With(circuit.Track),
                                                          session_.Project.Preferences, iconSize(), devicePixelRatioF(),
                                                          marks_(circuit.Track)));
    line.setData(PlaceRole, static_cast<qulonglong>(place));
    line.setCheckState(ticked_.contains(place) ? Qt::Checked : Qt::Unchecked);
    line.setIcon(pictures_[place]);
    QStringList lines{Shown(UseAndLengthText(circuit)), Shown(PiecesAndPriceText(session_, circuit))};
    if (ranked.Like) lines += QString("like %1").arg(*ranked.Like + 1);
    if (const std::string warning = WallWarning(session_, around_.Design, circuit); !warning.empty())
        lines += Shown(warning);
    if (ranked.Others > 0) lines += QString(ranked.Like ? "+%1" : "+%1 like it").arg(ranked.Others);
    line.setToolTip(lines.join('\n'));
    line.setText(lines.join('\n'));
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
    FitCards();
    constexpr int below = 6;
    const QSize size = cmdShowFirst_->sizeHint();
    cmdShowFirst_->setGeometry((viewport()->width() - size.width()) / 2, below, size.width(), size.height());
}

/// Two quick clicks on its box open no circuit.
void FoundCircuits::mouseDoubleClickEvent(QMouseEvent* event) {
    const QListWidgetItem* const line = itemAt(event->position().toPoint());
    if (line == nullptr) return QListWidget::mouseDoubleClickEvent(event);
    const QRect box = CircuitCard::TickTarget(visualItemRect(line), iconSize().width(), fontMetrics(), *style());
    if (box.contains(event->position().toPoint())) return QListWidget::mousePressEvent(event);
    QListWidget::mouseDoubleClickEvent(event);
}

void FoundCircuits::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QListWidget::keyPressEvent(event);
    Opened();
}

} // namespace pistaro
