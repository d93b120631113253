// One person at work: the project, the commands that change it, who hears of it, and the jobs that run beside it.
#pragma once

#include "commands/commands.h"
#include "commands/history.h"
#include "commands/jobs.h"
#include "commands/windows.h"
#include "imaging/picture.h"
#include "model/habits.h"
#include "model/looks.h"
#include "model/money.h"
#include "model/project.h"
#include "model/prompts.h"
#include "search/closing_tables.h"
#include "storage/known_files.h"
#include "storage/recent_circuits.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace pistaro {

/// What a piece of work has changed.
struct Changes {
    bool Circuit = false, Room = false, View = false;
    bool EditState = false; ///< the selection, a mode, the file, whether there are unsaved changes
    bool Stock = false, Preferences = false;
    bool Background = false;
    bool Looks = false;
    bool Saved = false;        ///< the design stands in its file now
    bool Discarded = false;    ///< the user has answered that unsaved work may go
    bool OtherCircuit = false; ///< another circuit took the place of the one before: Load, New, undo across these
    bool Job = false;          ///< one runs now, or none any more

    bool operator==(const Changes&) const = default;
};

class Recovery;

/// The picture under the circuit as its file holds it.
struct KeptBackground {
    std::filesystem::path File;
    std::shared_ptr<const ScaledBackground> Value;
};

/// The track, or part of one, that was copied last, and how it lies: a paste of the same lays it alike.
struct CopiedPieces {
    std::string List;
    float Heading = 0; ///< of its first piece
};

using Observer = std::function<void(const Changes&)>;

/// Its holder hears of changes as long as he holds it, and the session lives.
using Observation = std::shared_ptr<const Observer>;
using LeavingObservation = std::shared_ptr<const std::function<void()>>;

class Session {
public:
    /// The catalogue and the prompts must outlive the session. Without a settings file to write the path is empty.
    Session(const pistaro::Catalogue& catalogue, pistaro::Prompts& prompts, pistaro::Project project,
            std::filesystem::path settingsPath);

    const pistaro::Catalogue& Catalogue;
    const CommandTable Commands;
    const ClosingTables Closings; ///< made as far as a search has needed them
    pistaro::Prompts& Prompts;
    pistaro::Project Project;
    const std::filesystem::path SettingsPath;
    KnownFiles Files;                       ///< as they were read and written
    RecentCircuits Recent;                  ///< kept nowhere in a script
    std::optional<Picture> Background;      ///< behind the drawing
    pistaro::KeptBackground KeptBackground; ///< of the circuit's file, as it was read or written last
    DecodedPicture Pictures;                ///< under the circuit
    CopiedPieces Copied;                    ///< by this program
    pistaro::Looks Looks;                   ///< of the window
    bool HasRoomForColumns = true;          ///< on the screen; else there is room for one of them
    pistaro::Habits Habits;                 ///< of its user
    int Times = 1;                          ///< so many pieces the next press of a piece's button lays
    pistaro::MoneyMarks MoneyMarks;         ///< of the desktop, for what people read in the window
    int PicturePixels;                      ///< width and height of the drawing as it is shown
    pistaro::Windows* Windows = nullptr;    ///< null in a script
    pistaro::Recovery* Recovery = nullptr;  ///< what keeps unsaved work, where something does
    std::function<std::chrono::steady_clock::time_point()> Now = std::chrono::steady_clock::now;

    /// What laying a piece takes: the number is for one press.
    int TakeTimes() { return std::exchange(Times, 1); }

    /// Calls `observer` once after each piece of work, done or faulted, with what it has changed; and when a job has
    /// ended, before its end is run.
    [[nodiscard]] Observation Observe(Observer observer);

    /// Runs a row of the command table. Faults: it cannot be done now, which is the fault "Refused" and says why; those
    /// of the command.
    void Run(const Command& command);

    /// The same for a control that may be pressed when the row cannot be run: nothing happens then, and a fault is
    /// told. Gives whether the command came to its end.
    bool TryRun(const Command& command);

    /// Runs work that is no row and may fault; a fault is told with an exclamation icon and ends it there. Gives
    /// whether it came to its end. Work within other work is part of that: observers hear of the whole.
    bool Do(const std::function<void()>& work);

    /// The same for a caller who tells faults in another way: they come through.
    void Work(const std::function<void()>& work);

    /// What can be undone and redone. Each outermost work that changed the design is a step.
    const pistaro::History& History() const { return history_; }

    /// Goes to a state of the history. Whoever observes the leaving of circuits hears of it when that is another one's.
    void GoTo(std::size_t state);

    /// Begins the history with what is there now.
    void ForgetHistory() { history_ = pistaro::History(); }

    /// Calls the step that the running work makes so; then a change of the view alone makes a step, too. Works of the
    /// same `run` that follow each other quickly are one step.
    void NameStep(std::string caption, std::string run = {});

    /// The running work has put another circuit in the place of that before: it is a step of that name.
    void BeginCircuit(std::string caption);

    /// The running work has read the design from its file, which held these bytes, or written it there.
    void NoteLoaded(std::string bytes);
    void NoteSaved(std::string bytes);

    /// Whether work is running, a question that it asks included.
    bool IsWorking() const { return depth_ > 0; }

    /// The running work lets unsaved work go, because its user said so.
    void NoteDiscarded() { noted_.Discarded = true; }

    /// Calls `observer` before a circuit gives way to another one, and before the end.
    [[nodiscard]] LeavingObservation ObserveLeaving(std::function<void()> observer);

    /// To be called by what loads, begins or ends, before it does so.
    void NotifyLeaving();

    /// Starts a job. Its end is work of this session; when it was stopped there is none.
    void StartJob(const Job& job);
    void CancelJob();

    /// The job that runs beside the window, or null.
    const Job* CurrentJob() const { return jobs_.Current(); }
    bool HasJob() const { return jobs_.IsRunning(); }

    /// Has jobs run beside the window from now on: `post` calls a function later on the window's thread, `progress` is
    /// told how far a job is. When the window goes it takes both away again.
    void RunJobsBeside(Jobs::Post post, std::function<void(int done, int total)> progress);

private:
    void NameStep(const Command& command);
    void Notify(const Changes& changes);
    void Finish(const pistaro::Project& before, const std::optional<Picture>& background, const pistaro::Looks& looks);

    std::vector<std::weak_ptr<const Observer>> observers_;
    std::vector<std::weak_ptr<const std::function<void()>>> leavers_;
    std::function<void(int, int)> progress_;
    int depth_ = 0;          ///< of work within work
    StepName step_;          ///< of the running work
    Changes noted_;          ///< what the running work said of itself
    bool newInFile_ = false; ///< after the running work the circuit's file holds something else than before
    bool hadJob_ = false;    ///< when the running work began
    bool moved_ = false;     ///< the running work went to a state of the history
    pistaro::History history_;
    Jobs jobs_;
};

} // namespace pistaro
