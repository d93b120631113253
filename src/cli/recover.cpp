#include "cli/recover.h"

#include "cli/start.h"
#include "commands/background_commands.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "platform/places.h"
#include "storage/background_file.h"
#include "storage/circuit_file.h"
#include "storage/recovery_file.h"

#include <algorithm>
#include <ctime>
#include <iomanip>

namespace pistaro {

namespace {

std::vector<RecoveredWork> Works(const VerbContext& context) {
    PrintMessages(StartVerb(context).Messages, context.Errors);
    const std::filesystem::path folder = RecoveryFolder();
    return folder.empty() ? std::vector<RecoveredWork>() : FindRecoveredWork(folder);
}

RecoveredWork WorkNamed(const std::string& handle, std::vector<RecoveredWork> works) {
    const auto exact = std::ranges::find(works, handle, &RecoveredWork::Handle);
    if (exact != works.end()) return *exact;
    if (handle.empty()) throw Fault("File not found", "no recovered work has an empty name");
    std::erase_if(works, [&](const RecoveredWork& work) { return !work.Handle().starts_with(handle); });
    if (works.size() > 1) throw Fault("Refused", "the names of several recovered works begin with \"" + handle + "\"");
    if (works.empty()) throw Fault("File not found", "there is no recovered work \"" + handle + "\"");
    return works.front();
}

} // namespace

void ListRecoveredVerb(const VerbContext& context) {
    const std::vector<RecoveredWork> works = WithContent(Works(context));
    std::size_t widest = 0;
    for (const RecoveredWork& work : works)
        widest = std::max(widest, work.Handle().size());
    for (const RecoveredWork& work : works) {
        const std::time_t written = std::chrono::system_clock::to_time_t(work.Written);
        context.Output << std::left << std::setw(static_cast<int>(widest)) << work.Handle() << "  "
                       << std::put_time(std::localtime(&written), "%Y-%m-%dT%H:%M:%S") << "  " << std::right
                       << std::setw(7) << (work.Content ? std::to_string(work.Pieces()) : "damaged") << "  "
                       << TextFromPath(work.File) << '\n';
    }
}

void CopyRecoveredVerb(const VerbContext& context, const std::string& handle, const std::filesystem::path& out) {
    const RecoveredWork work = WorkNamed(handle, Works(context));
    const Design design = ReadCircuit(work.File); // its own fault tells what is damaged
    std::error_code toldByTheWrite;
    if (std::filesystem::exists(std::filesystem::symlink_status(out, toldByTheWrite)))
        throw Fault("File already exists", TextFromPath(out));
    if (std::filesystem::exists(BackgroundFileOf(work.File), toldByTheWrite) &&
        std::filesystem::exists(BackgroundFileOf(out), toldByTheWrite))
        throw Fault("File already exists", TextFromPath(BackgroundFileOf(out)));
    CopyBackground(work.File, out);
    WriteCircuit(out, design);
    context.Output << TextFromPath(out) << '\n';
}

} // namespace pistaro
