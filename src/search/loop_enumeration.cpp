#include "search/loop_enumeration.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pistaro {

namespace {

constexpr std::size_t MostRuns = 100'000;  ///< of the table
constexpr std::size_t MostNodes = 400'000; ///< chains that are looked at
constexpr std::size_t MostLoops = 100'000;

/// Lays one piece after the other, and closes each chain by a run of the table.
class Enumeration {
public:
    Enumeration(const std::vector<LayingStep>& steps, const ShapeCounts& shapes, TrackSystem system,
                std::vector<Run>& found)
        : steps_(steps), system_(system), left_(shapes),
          table_(steps, system, shapes, MostRuns, RunTable::StraightsInOrder::All), found_(found),
          reachOf_(shapes.size()) {
        std::vector<int> turnOf(shapes.size());
        for (const LayingStep& step : steps) {
            if (step.Entry != system || step.Exit != system) continue;
            const auto shape = static_cast<std::size_t>(step.Shape);
            reachOf_[shape] = std::max(reachOf_[shape], std::hypot(step.Move[0].X, step.Move[0].Y));
            turnOf[shape] = std::abs(step.Turn);
        }
        for (std::size_t shape = 0; shape < shapes.size(); ++shape) {
            reach_ += shapes[shape] * reachOf_[shape];
            turnLeft_ += shapes[shape] * turnOf[shape];
            if (reachOf_[shape] > 0) pieces_ += static_cast<std::size_t>(shapes[shape]);
        }
    }

    /// False where there was too much to look at.
    bool Run() {
        if (table_.Depth() == 0) return true;
        CloseBy([](int length) { return length > 2; });
        return Extend();
    }

private:
    /// How far the piece leads at most: a curve's hands differ in their reference edge.
    double ReachOf(const LayingStep& step) const { return reachOf_[static_cast<std::size_t>(step.Shape)]; }

    bool Extend() {
        if (chain_.size() + static_cast<std::size_t>(table_.Depth()) >= pieces_) return true;
        for (std::size_t i = 0; i < steps_.size(); ++i) {
            const LayingStep& step = steps_[i];
            int& left = left_[static_cast<std::size_t>(step.Shape)];
            if (step.Entry != system_ || step.Exit != system_ || left == 0) continue;
            // A loop to the left has a curve to the left, with which it may as well begin.
            if (chain_.empty() && step.Turn <= 0) continue;
            if (++nodes_ > MostNodes || found_.size() > MostLoops) return false;
            const SearchPose before = pose_;
            --left;
            pose_ = step.After(pose_);
            turn_ += step.Turn;
            turnLeft_ -= std::abs(step.Turn);
            reach_ -= ReachOf(step);
            chain_.push_back(static_cast<std::uint8_t>(i));
            bool allSeen = true;
            if (MayClose()) {
                CloseBy([&](int length) { return length == table_.Depth(); });
                allSeen = Extend();
            }
            chain_.pop_back();
            reach_ += ReachOf(step);
            turnLeft_ += std::abs(step.Turn);
            turn_ -= step.Turn;
            pose_ = before;
            ++left;
            if (!allSeen) return false;
        }
        return true;
    }

    /// Whether what is left reaches back to the start, and far enough round.
    bool MayClose() const {
        constexpr double rounding = 0.1;
        return std::hypot(pose_.X, pose_.Y) <= reach_ + rounding && HeadingCount - turn_ <= turnLeft_;
    }

    template <typename Wanted>
    void CloseBy(Wanted wanted) {
        table_.ForEachTo(Relative(pose_, SearchPose()), LoopTolerance, [&](std::size_t run) {
            if (!wanted(table_.LengthOf(run))) return;
            const pistaro::Run rest = table_.StepsOfRun(run);
            ShapeCounts left = left_;
            int turn = turn_;
            for (const std::uint8_t step : rest) {
                if (--left[static_cast<std::size_t>(steps_[step].Shape)] < 0) return;
                turn += steps_[step].Turn;
            }
            if (turn != HeadingCount) return;
            pistaro::Run loop = chain_;
            std::ranges::copy(rest, std::back_inserter(loop));
            found_.push_back(std::move(loop));
        });
    }

    const std::vector<LayingStep>& steps_;
    TrackSystem system_;
    ShapeCounts left_;
    RunTable table_;
    std::vector<pistaro::Run>& found_;
    pistaro::Run chain_;
    SearchPose pose_;
    int turn_ = 0;
    std::vector<double> reachOf_; ///< by shape
    double reach_ = 0;            ///< of all that is left
    int turnLeft_ = 0;
    std::size_t pieces_ = 0, nodes_ = 0;
};

} // namespace

std::optional<std::vector<Run>> EnumerateLoops(const std::vector<LayingStep>& steps, const ShapeCounts& shapes) {
    std::vector<Run> found;
    for (const TrackSystem system : {TrackSystem::Scalextric, TrackSystem::Ninco}) {
        if (!Enumeration(steps, shapes, system, found).Run()) return std::nullopt;
    }
    return found;
}

} // namespace pistaro
