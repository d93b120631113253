// The circuits that were found, as cards with a picture and figures. Some can be chosen, and some ticked to be kept.
#pragma once

#include "commands/laying_commands.h"
#include "search/circuit_order.h"
#include "ui/work_picture.h"

#include <QListWidget>
#include <QPushButton>

#include <functional>
#include <optional>
#include <set>

namespace pistaro {

class FoundCircuits : public QListWidget {
public:
    explicit FoundCircuits(Session& session);

    std::function<void()> ChosenChanged; ///< called when others are chosen or ticked
    std::function<void()> Opened;        ///< called for a double click, or Enter
    std::function<void()> SizeChanged;   ///< called when the pictures ought to be shown in another size

    /// Which pieces of a circuit are marked in its picture.
    using Marks = std::function<MarkedPieces(const Track&)>;

    /// Shows none, and those to come with this around them, and marked so.
    void Begin(const Surroundings& around, Marks marks);

    /// Shows those of `found` in this order, and behind them those that are ticked or chosen. The chosen ones stay
    /// chosen; until the user has chosen some it is the first one. Who has scrolled keeps what he looks at where it is,
    /// and is offered to see a new first one; who has not sees it.
    void Show(const std::vector<FoundCircuit>& found, const std::vector<RankedCircuit>& ranked);

    /// Makes room for so many, whose cards are as large as goes with all of them in sight.
    void MakeRoomFor(int count);

    /// Whether what is shown was searched for other pieces or another room: the pictures are pale then.
    void SetOutdated(bool isOutdated);

    /// Says what to do in the place of circuits, while there are none.
    void ShowHint(const QString& hint);

    /// Draws the pictures anew when they are shown next.
    void ForgetPictures() { pictures_.clear(); }

    /// The place among those found of the one to be shown large: of those chosen the one that was clicked last.
    std::optional<std::size_t> InView() const;

    /// Those that are ticked, in the order shown; where none is, those that are chosen.
    std::vector<std::size_t> ToKeep() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// A card of which its user knows where it is.
    struct Sight {
        std::size_t Place;
        int Top; ///< in the viewport
    };

    bool IsAtTop() const;
    std::size_t PlaceOf(int row) const;
    int RowOf(std::size_t place) const;
    std::vector<std::size_t> Chosen() const;
    std::vector<RankedCircuit> WithThoseThatStay(std::vector<RankedCircuit> ranked,
                                                 const std::vector<std::size_t>& chosen) const;
    std::optional<Sight> Seen() const;
    void KeepInSight(const std::optional<Sight>& seen);
    void OfferFirst();
    void Tick(const QListWidgetItem& line);
    void Fill(QListWidgetItem& line, const FoundCircuit& found, const RankedCircuit& ranked);
    void FitCards();

    Session& session_;
    Surroundings around_;
    QString hint_;
    Marks marks_;
    int wished_ = 1;                   ///< how many there shall be room for
    std::vector<QIcon> pictures_;      ///< by place among those found; those never shown have none
    std::set<std::size_t> ticked_;     ///< their places
    bool hasChosen_ = false;           ///< the user has
    std::optional<std::size_t> first_; ///< the first one's place when the user last saw it
    QPushButton* const cmdShowFirst_;
};

} // namespace pistaro
