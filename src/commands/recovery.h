// What keeps unsaved work from being lost: while there is any, it stands in a recovery file.
#pragma once

#include "commands/delayed_writer.h"
#include "commands/session.h"
#include "storage/recovery_file.h"

#include <memory>

namespace pistaro {

class Recovery {
public:
    /// How long a change may wait until it is written: well below the five seconds that users are promised.
    static constexpr std::chrono::milliseconds Delay{2000};

    /// Watches the session, which outlives it, from now on. The files go into `folder`, which
    /// is made with the first of them; one that is empty keeps nothing. `post` calls a function later on the session's
    /// thread.
    Recovery(Session& session, std::filesystem::path folder, Jobs::Post post, std::chrono::milliseconds delay = Delay);

    /// Writes what still waits.
    ~Recovery();
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    bool IsOn() const { return !folder_.empty(); }

    /// Has the unsaved work on disk when it returns: before it may go.
    void Secure() { writer_.Now(); }

    /// The last twenty works that can be opened, the one written last first: not those of other programs that live, nor
    /// the one that stands in the session.
    std::vector<RecoveredWork> Works() const;

    /// Those of them that a program has left without its user knowing.
    std::vector<RecoveredWork> Untold() const;

    /// Notes that the user knows of these works now.
    void Keep(const std::vector<RecoveredWork>& works) const;

    /// Takes over the file of a work that the running piece of work puts into the session; where it cannot, that file
    /// stays and the work gets another one.
    void Adopt(const RecoveredWork& work);

private:
    class Files;

    /// The works that can be opened, without their content.
    std::vector<RecoveredWork> Free() const;
    void NoteChanges(const Changes& changes);
    void WriteLater();
    /// A work goes its way, and its file stays.
    void Leave(std::optional<RecoveryName>& work, bool knowingly);
    void Remove();
    bool IsOnDisk() const;
    RecoveryName NewName();
    std::filesystem::path PathOf(const RecoveryName& name) const;

    Session& session_;
    const std::filesystem::path folder_;
    const std::string owner_;
    const std::shared_ptr<Files> files_;
    std::optional<RecoveryName> current_;  ///< of the work in the session, if it has a file
    std::optional<RecoveryName> previous_; ///< of the one before, where the running piece of work adopts another
    bool adopted_ = false;
    int number_ = 0; ///< of works so far
    DelayedWriter writer_;
    Observation observation_;
    LeavingObservation leaving_;
};

} // namespace pistaro
