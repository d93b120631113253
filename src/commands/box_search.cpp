#include "commands/box_search.h"

#include "search/no_circuit.h"

#include <atomic>
#include <iterator>
#include <mutex>
#include <utility>

namespace pistaro {

namespace {

constexpr int MostEfforts = 40;  ///< of a search that has found nothing
constexpr int BeyondEffort = -1; ///< in place of the percent of its effort

} // namespace

/// The search is the thread's while a job runs; what it found since it was last asked passes from there to here.
struct BoxSearch::Shared {
    Shared(const Catalogue& catalogue, const LayingTask& task)
        : Search(catalogue, task), IsHopeless(!WhyNoCircuit(catalogue, task).empty()) {}

    /// Looks on for a moment. False when it has come to its end.
    bool Round(const JobWatch& watch) {
        if (Search.Round(watch)) return true;
        if (!Search.Found().empty() || Search.IsComplete() || IsHopeless || ++Efforts >= MostEfforts) return false;
        Search.Continue();
        return true;
    }

    /// Gives whether it is farther than when it was last asked.
    bool IsFarther() {
        constexpr double hundred = 100;
        const int percent = Efforts > 0 ? BeyondEffort : static_cast<int>(Search.Spent() * hundred);
        return Percent.exchange(percent) != percent;
    }

    /// Gives whether there is anything new.
    bool Publish() {
        const std::vector<FoundCircuit>& found = Search.Found();
        if (Published == found.size()) return false;
        const std::scoped_lock lock(Mutex);
        Fresh.insert(Fresh.end(), found.begin() + static_cast<std::ptrdiff_t>(Published), found.end());
        Published = found.size();
        return true;
    }

    std::vector<FoundCircuit> TakeFresh() {
        const std::scoped_lock lock(Mutex);
        return std::exchange(Fresh, {});
    }

    CircuitSearch Search;
    const bool IsHopeless;
    std::size_t Published = 0;
    int Efforts = 0; ///< that came to their end without a circuit, since it was last begun or gone on with
    bool HasEnded = false;
    std::atomic<bool> Pauses = false;
    std::atomic<int> Percent = 0;
    std::mutex Mutex;
    std::vector<FoundCircuit> Fresh;
};

BoxSearch::BoxSearch(const Catalogue& catalogue, Jobs::Post post, std::function<void()> heard,
                     std::function<void(const JobEnd&)> contain)
    : catalogue_(catalogue), heard_(std::move(heard)), contain_(std::move(contain)) {
    jobs_.RunBeside(std::move(post));
}

void BoxSearch::Start(const LayingTask& task) {
    Cancel();
    found_.clear();
    shared_ = std::make_shared<Shared>(catalogue_, task);
    Run();
}

bool BoxSearch::IsPausing() const { return standing_ == BoxStanding::Runs && shared_->Pauses; }

std::optional<int> BoxSearch::Percent() const {
    const int percent = standing_ == BoxStanding::Runs ? shared_->Percent.load() : 0;
    return percent == BeyondEffort ? std::nullopt : std::optional(percent);
}

void BoxSearch::Pause() {
    if (standing_ == BoxStanding::Runs) shared_->Pauses = true;
}

void BoxSearch::Continue() {
    if (standing_ == BoxStanding::Runs) shared_->Pauses = false;
    if (standing_ == BoxStanding::Ended) {
        shared_->Efforts = 0;
        shared_->Search.Continue();
    }
    if (standing_ == BoxStanding::Ended || standing_ == BoxStanding::Paused) Run();
}

void BoxSearch::Cancel() {
    jobs_.Cancel();
    shared_.reset();
    standing_ = BoxStanding::Idle;
}

void BoxSearch::Run() {
    standing_ = BoxStanding::Runs;
    shared_->Pauses = false;
    const auto work = [this, shared = shared_](const JobWatch& watch) -> JobEnd {
        bool goesOn = true;
        while (goesOn && !shared->Pauses) {
            goesOn = shared->Round(watch);
            const bool isFarther = shared->IsFarther();
            if (shared->Publish() || isFarther) watch.Step(static_cast<int>(shared->Published), 0);
        }
        shared->HasEnded = !goesOn;
        return [this] { End(); };
    };
    jobs_.Start({"Circuits from my box", "A search for circuits is running.", work}, contain_,
                [this](int, int) { Collect(); });
}

void BoxSearch::Collect() {
    std::vector<FoundCircuit> fresh = shared_->TakeFresh();
    found_.insert(found_.end(), std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
    heard_();
}

void BoxSearch::End() {
    standing_ = !shared_->HasEnded             ? BoxStanding::Paused
                : shared_->Search.IsComplete() ? BoxStanding::Complete
                                               : BoxStanding::Ended;
    Collect();
}

} // namespace pistaro
