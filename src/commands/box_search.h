// The search for circuits beside the window: it can be stopped and gone on with, and tells what it finds as it finds
// it.
#pragma once

#include "commands/jobs.h"
#include "search/laying.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace pistaro {

/// How a search stands.
enum class BoxStanding {
    Idle,     ///< nothing has been looked for
    Runs,     ///< beside its owner
    Paused,   ///< it was stopped before its end
    Ended,    ///< it found so many as were wished for, or none for very long; it can be gone on with
    Complete, ///< it found all there are
};

class BoxSearch {
public:
    /// `heard` is called on the owner's thread when something was found, or the search came to a stop; `contain` runs
    /// what may fault there. The catalogue must outlive it.
    BoxSearch(const Catalogue& catalogue, Jobs::Post post, std::function<void()> heard,
              std::function<void(const JobEnd&)> contain);

    BoxStanding Standing() const { return standing_; }

    /// Whether it runs on until the next moment where it can stop.
    bool IsPausing() const;

    /// How far the search that runs is, in percent of its usual effort; nothing when it looks beyond that for a first
    /// circuit.
    std::optional<int> Percent() const;

    /// Looks for circuits; what was found before is forgotten. Where there is none after the usual effort it goes on
    /// until the first one, or until several times that effort, unless it is certain that there can be none.
    void Start(const LayingTask& task);

    /// Stops at the next moment where the search can be gone on with as if it had not been stopped.
    void Pause();
    void Continue();

    /// Stops at once and forgets what was looked for, but not what was found.
    void Cancel();

    /// In the order in which they were found.
    const std::vector<FoundCircuit>& Found() const { return found_; }

private:
    struct Shared;

    void Run();
    void Collect();
    void End();

    const Catalogue& catalogue_;
    std::function<void()> heard_;
    std::function<void(const JobEnd&)> contain_;
    BoxStanding standing_ = BoxStanding::Idle;
    std::vector<FoundCircuit> found_;
    std::shared_ptr<Shared> shared_; ///< with the job's thread
    Jobs jobs_;
};

} // namespace pistaro
