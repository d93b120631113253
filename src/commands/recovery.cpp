// All but the writing happens on the session's thread, and none of it while something is being written.
#include "commands/recovery.h"

#include "platform/fault_words.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/locks.h"
#include "platform/processes.h"
#include "storage/background_file.h"
#include "storage/circuit_file.h"
#include "storage/line_reader.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace pistaro {

namespace {

constexpr std::size_t MostShown = 20;

/// No two programs that run at once, or one after the other, have the same.
std::string NewOwner() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto start = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    return std::to_string(ProcessNumber()) + "." + std::to_string(start);
}

/// A work, and the picture under it.
void Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code staysAsItIs; // and is found under the old name
    std::filesystem::rename(BackgroundFileOf(from), BackgroundFileOf(to), staysAsItIs);
    std::filesystem::rename(from, to, staysAsItIs);
}

RecoveryName Kept(RecoveryName name) {
    name.IsKept = true;
    return name;
}

} // namespace

/// The folder and this program's sign of life in it. Outlives what is being written.
class Recovery::Files {
public:
    Files(std::filesystem::path folder, std::string owner, Jobs::Post post, std::function<void(std::string)> tell)
        : folder_(std::move(folder)), owner_(std::move(owner)), post_(std::move(post)), tell_(std::move(tell)) {}

    /// Makes folder and sign with the first work. Where they cannot be made that is told.
    static bool Begun(const std::shared_ptr<Files>& files) {
        return Try(files, [&] {
            if (files->sign_) return;
            MakeFolders(files->folder_);
            files->sign_ = std::make_unique<LifeSign>(LifeSignOf(files->folder_, files->owner_));
            TidyRecoveredWork(files->folder_);
        });
    }

    /// Gives whether it could be written. What cannot is told when it begins, and not at each try.
    static bool Write(const std::shared_ptr<Files>& files, const std::filesystem::path& file, const Design& design,
                      const std::shared_ptr<const ScaledBackground>& background) {
        const bool written = Begun(files) && Try(files, [&] {
                                 files->WriteBackground(BackgroundFileOf(file), background);
                                 ReplaceFile(file, CircuitBytes(design));
                             });
        if (written) files->told_ = false;
        return written;
    }

private:
    /// A picture has megabytes: it is written when it has changed.
    void WriteBackground(const std::filesystem::path& file, const std::shared_ptr<const ScaledBackground>& background) {
        if (backgroundFile_ == file && background_ == background) return;
        backgroundFile_.clear(); // until it stands there
        std::error_code neverWritten;
        if (background) {
            ReplaceFile(file, BackgroundBytes(*background));
        } else {
            std::filesystem::remove(file, neverWritten);
        }
        backgroundFile_ = file;
        background_ = background;
    }

    static bool Try(const std::shared_ptr<Files>& files, const std::function<void()>& work) {
        try {
            work();
            return true;
        } catch (const std::exception& fault) {
            if (files->told_.exchange(true)) return false;
            files->post_([waiting = std::weak_ptr(files), text = std::string(WordsOf(fault))] {
                if (const auto here = waiting.lock()) here->tell_(text);
            });
            return false;
        }
    }

    const std::filesystem::path folder_;
    const std::string owner_;
    const Jobs::Post post_;
    const std::function<void(std::string)> tell_;
    std::unique_ptr<LifeSign> sign_;
    std::filesystem::path backgroundFile_; ///< as it was written last
    std::shared_ptr<const ScaledBackground> background_;
    std::atomic<bool> told_ = false;
};

Recovery::Recovery(Session& session, std::filesystem::path folder, Jobs::Post post, std::chrono::milliseconds delay)
    : session_(session), folder_(std::move(folder)), owner_(NewOwner()),
      files_(
          std::make_shared<Files>(folder_, owner_, std::move(post),
                                  [&session](const std::string& fault) {
                                      session.Prompts.Tell({Icon::Exclamation, "Unsaved work is not kept: " + fault});
                                  })),
      writer_(delay) {
    if (!IsOn()) return;
    session_.Recovery = this;
    observation_ = session_.Observe([this](const Changes& changes) { NoteChanges(changes); });
    leaving_ = session_.ObserveLeaving([this] { Secure(); });
}

Recovery::~Recovery() {
    Secure();
    session_.Recovery = nullptr;
}

void Recovery::NoteChanges(const Changes& changes) {
    if (std::exchange(adopted_, false)) {
        Leave(previous_, changes.Discarded);
    } else if (changes.OtherCircuit || changes.Discarded) {
        Leave(current_, changes.Discarded);
        if (!changes.OtherCircuit) return; // the end
    }
    if (!session_.Project.EditState.DataChanged) {
        if (current_ && (changes.Saved || IsOnDisk())) Remove();
    } else if (!current_ || changes.Circuit || changes.Room || changes.View || changes.Background) {
        WriteLater();
    }
}

void Recovery::WriteLater() {
    if (!current_) current_ = NewName();
    writer_.Later(
        [files = files_, file = PathOf(*current_), design = std::make_shared<const Design>(session_.Project.Design),
         background = session_.Project.Background] { return Files::Write(files, file, *design, background); });
}

void Recovery::Leave(std::optional<RecoveryName>& work, bool knowingly) {
    if (!work) return;
    writer_.Now();
    if (knowingly) Rename(PathOf(*work), PathOf(Kept(*work)));
    work.reset();
}

void Recovery::Remove() {
    writer_.Forget();
    RemoveRecoveredWork(PathOf(*current_));
    current_.reset();
}

bool Recovery::IsOnDisk() const {
    const Project& project = session_.Project;
    if (project.EditState.File.empty()) {
        return std::ranges::all_of(project.Design.Circuit.Tracks,
                                   [](const Track& track) { return track.ElementCodes.empty(); });
    }
    try {
        return ReadFile(project.EditState.File, MostFileBytes) == CircuitBytes(project.Design);
    } catch (const std::exception&) {
        return false;
    }
}

RecoveryName Recovery::NewName() {
    return {.Design = ProjectName(session_.Project.EditState),
            .Begun = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()),
            .Owner = owner_,
            .Number = ++number_};
}

std::filesystem::path Recovery::PathOf(const RecoveryName& name) const {
    return folder_ / PathFromText(FileNameOf(name));
}

std::vector<RecoveredWork> Recovery::Free() const {
    if (!IsOn()) return {};
    std::vector<RecoveredWork> works = FindRecoveredWork(folder_);
    std::erase_if(works, [this](const RecoveredWork& work) {
        const bool isOfAnother = work.OwnerLives && work.Name.Owner != owner_;
        return isOfAnother || work.Name == current_;
    });
    if (works.size() > MostShown) works.resize(MostShown);
    return works;
}

std::vector<RecoveredWork> Recovery::Works() const { return WithContent(Free()); }

std::vector<RecoveredWork> Recovery::Untold() const {
    std::vector<RecoveredWork> works = Free();
    std::erase_if(works, [](const RecoveredWork& work) { return work.OwnerLives || work.Name.IsKept; });
    return WithContent(std::move(works));
}

void Recovery::Keep(const std::vector<RecoveredWork>& works) const {
    for (const RecoveredWork& work : works)
        Rename(work.File, PathOf(Kept(work.Name)));
}

void Recovery::Adopt(const RecoveredWork& work) {
    writer_.Now();
    if (!Files::Begun(files_)) return;
    const RecoveryName name{work.Name.Design, work.Name.Begun, owner_, ++number_, false};
    Rename(work.File, PathOf(name));
    previous_ = std::exchange(current_, name);
    adopted_ = true;
}

} // namespace pistaro
