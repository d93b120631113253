#include "commands/session.h"

#include "imaging/circuit_picture.h"
#include "platform/fault.h"
#include "platform/fault_words.h"

namespace pistaro {

namespace {

Changes Difference(const Project& before, const Project& after) {
    return {.Circuit = before.Design.Circuit != after.Design.Circuit,
            .Room = before.Design.Room != after.Design.Room,
            .View = before.Design.View != after.Design.View,
            .EditState = before.EditState != after.EditState,
            .Stock = before.Stock != after.Stock,
            .Preferences = before.Preferences != after.Preferences};
}

/// Keeps an observer as long as somebody holds what this gives.
template <typename Observer>
std::shared_ptr<const Observer> Keep(std::vector<std::weak_ptr<const Observer>>& observers, Observer observer) {
    auto observation = std::make_shared<const Observer>(std::move(observer));
    observers.push_back(observation);
    return observation;
}

template <typename Observer, typename... News>
void NotifyAll(std::vector<std::weak_ptr<const Observer>>& observers, const News&... news) {
    std::erase_if(observers, [](const auto& observer) { return observer.expired(); });
    for (const auto& observer : std::vector(observers)) { // one may come or go while another is told
        if (const auto held = observer.lock()) (*held)(news...);
    }
}

} // namespace

Session::Session(const pistaro::Catalogue& catalogue, pistaro::Prompts& prompts, pistaro::Project project,
                 std::filesystem::path settingsPath)
    : Catalogue(catalogue), Commands(catalogue), Closings(catalogue), Prompts(prompts), Project(std::move(project)),
      SettingsPath(std::move(settingsPath)), PicturePixels(DefaultPicturePixels) {}

void Session::Run(const Command& command) {
    const std::string whyNot = command.WhyNot(*this);
    if (!whyNot.empty()) throw Fault("Refused", "\"" + command.Id + "\" is not offered now: " + whyNot);
    Work([&] {
        NameStep(command);
        command.Run(*this);
    });
}

bool Session::TryRun(const Command& command) {
    return command.WhyNot(*this).empty() && Do([&] {
               NameStep(command);
               command.Run(*this);
           });
}

bool Session::Do(const std::function<void()>& work) {
    bool done = false;
    Work([&] {
        try {
            work();
            done = true;
        } catch (const Stopped&) {
            return; // its user knows: it was they who stopped it
        } catch (const std::exception& fault) {
            Prompts.Tell({Icon::Exclamation, WordsOf(fault)});
        }
    });
    return done;
}

void Session::Work(const std::function<void()>& work) {
    if (depth_ > 0) return work();
    const pistaro::Project before = Project;
    const std::optional<Picture> background = Background;
    const pistaro::Looks looks = Looks;
    step_ = {.Time = Now()};
    noted_ = {};
    moved_ = newInFile_ = false;
    hadJob_ = HasJob();
    ++depth_;
    try {
        work();
    } catch (...) {
        --depth_;
        Finish(before, background, looks);
        throw;
    }
    --depth_;
    Finish(before, background, looks);
}

void Session::Finish(const pistaro::Project& before, const std::optional<Picture>& background,
                     const pistaro::Looks& looks) {
    if (!moved_) history_.Record(before, Project, step_);
    if (newInFile_) history_.NoteOnlyOneInFile(Project.EditState.File);
    Changes changes = Difference(before, Project);
    changes.Background = Background != background || Project.Background != before.Background;
    changes.Looks = Looks != looks;
    changes.Saved = noted_.Saved;
    changes.Discarded = noted_.Discarded;
    changes.OtherCircuit = noted_.OtherCircuit;
    changes.Job = HasJob() != hadJob_;
    Notify(changes);
}

Observation Session::Observe(Observer observer) { return Keep(observers_, std::move(observer)); }

LeavingObservation Session::ObserveLeaving(std::function<void()> observer) {
    return Keep(leavers_, std::move(observer));
}

void Session::Notify(const Changes& changes) { NotifyAll(observers_, changes); }

void Session::NameStep(const Command& command) {
    if (depth_ != 1) return; // it is part of another's step
    step_.Caption = command.Step ? command.Step(*this) : PlainCaption(command.Caption);
    if (command.Repeatable) step_.Run = command.Id;
}

void Session::NameStep(std::string caption, std::string run) {
    step_.Caption = std::move(caption);
    step_.Run = std::move(run);
    step_.EditsView = true;
}

void Session::BeginCircuit(std::string caption) {
    NameStep(std::move(caption));
    step_.BeginsCircuit = true;
    noted_.OtherCircuit = true;
}

void Session::NoteLoaded(std::string bytes) {
    newInFile_ = Files.Remember(Project.EditState.File, std::move(bytes));
    Recent.Add(Project.EditState.File);
    BeginCircuit("Load " + ProjectName(Project.EditState));
}

void Session::NoteSaved(std::string bytes) {
    Files.Remember(Project.EditState.File, std::move(bytes));
    Recent.Add(Project.EditState.File);
    newInFile_ = true;
    noted_.Saved = true;
}

void Session::NotifyLeaving() { NotifyAll(leavers_); }

void Session::GoTo(std::size_t state) {
    Work([&] {
        if (!history_.AreOfOneCircuit(history_.Present(), state)) {
            NotifyLeaving();
            noted_.OtherCircuit = true;
        }
        history_.GoTo(state, Project);
        moved_ = true;
    });
}

void Session::StartJob(const Job& job) {
    const auto finish = [this](const JobEnd& end) {
        if (jobs_.RunsBeside()) Notify({.Job = true}); // the end may ask, and the job is over
        Do(end);
    };
    jobs_.Start(job, finish, progress_);
}

void Session::CancelJob() { jobs_.Cancel(); }

void Session::RunJobsBeside(Jobs::Post post, std::function<void(int, int)> progress) {
    jobs_.RunBeside(std::move(post));
    progress_ = std::move(progress);
}

} // namespace pistaro
