// The circuits that were found, as cards with a picture and figures, of which some can be chosen.
#pragma once

#include "commands/session.h"
#include "search/laying.h"

#include <QListWidget>

#include <functional>

namespace pistaro {

class FoundCircuits : public QListWidget {
public:
    explicit FoundCircuits(Session& session);

    std::function<void()> ChosenChanged; ///< called when others are chosen
    std::function<void()> Opened;        ///< called for a double click, or Enter

    /// Shows none, and those to come in this room; their first `kept` pieces are marked.
    void Begin(const Design& room, std::size_t kept);

    /// Shows those of `found` that stand at these places, in this order. The chosen ones stay chosen; until the user
    /// has chosen some it is the first one.
    void Show(const std::vector<FoundCircuit>& found, const std::vector<std::size_t>& places,
              const ScoreWeights& weights);

    /// Says what to do in the place of circuits, while there are none.
    void ShowHint(const QString& hint);

    /// Draws the pictures anew when they are shown next.
    void ForgetPictures() { pictures_.clear(); }

    /// The places of the chosen ones among those found.
    std::vector<std::size_t> Chosen() const;

    /// A circuit in its room as it lies.
    Design DesignOf(const LaidCircuit& circuit) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Fill(QListWidgetItem& line, const FoundCircuit& found, std::size_t place, const ScoreWeights& weights);

    Session& session_;
    Design room_;
    QString hint_;
    std::size_t kept_ = 0;
    std::vector<QIcon> pictures_; ///< by place among those found; those never shown have none
    bool hasChosen_ = false;      ///< the user has
};

} // namespace pistaro
