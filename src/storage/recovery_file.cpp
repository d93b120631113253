// A name's parts stand between "~"; in the design's name what would part them, or no file's name holds, is "%" and two
// hexadecimal digits.
#include "storage/recovery_file.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/locks.h"
#include "platform/temporary_files.h"
#include "storage/background_file.h"
#include "storage/circuit_file.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace pistaro {

namespace {

constexpr std::string_view Ending = ".trk";
constexpr std::string_view KeptMark = "~kept";
constexpr std::string_view LifeSignEnding = ".lives";
constexpr std::size_t MostNameBytes = 200; ///< of the 255 that a file's name has
constexpr std::size_t MostWorks = 20;

bool NeedsEscape(char c) {
    constexpr std::string_view marks = " %~/\\:*?\"<>|";
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F || marks.find(c) != std::string_view::npos;
}

std::string Escaped(std::string_view character) {
    if (!NeedsEscape(character[0])) return std::string(character);
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(character[0]);
    return {'%', digits[byte >> 4U], digits[byte & 0xFU]};
}

/// As much of a design's name as a file's name has room for.
std::string EscapedName(std::string_view name) {
    std::string escaped;
    while (!name.empty()) {
        std::string_view rest = name;
        TakeCharacter(rest);
        const std::string character = Escaped(name.substr(0, name.size() - rest.size()));
        if (escaped.size() + character.size() > MostNameBytes) break;
        escaped += character;
        name = rest;
    }
    return escaped;
}

std::string UnescapedName(std::string_view escaped) {
    std::string name;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        unsigned byte = 0;
        const char* const digits = escaped.data() + i + 1;
        if (escaped[i] == '%' && i + 2 < escaped.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            name += static_cast<char>(byte);
            i += 2;
        } else {
            name += escaped[i];
        }
    }
    return name;
}

std::string TimeText(std::chrono::sys_seconds time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d%02u%02uT%02d%02d%02dZ", int{date.year()}, unsigned{date.month()},
                  unsigned{date.day()}, static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return text.data();
}

std::optional<std::chrono::sys_seconds> TimeIn(const std::string& text) {
    constexpr std::size_t length = std::string_view("20261122T073105Z").size();
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (text.size() != length ||
        std::sscanf(text.c_str(), "%4d%2u%2uT%2d%2d%2dZ", &year, &month, &day, &hour, &minute, &second) != 6) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
    if (!date.ok()) return std::nullopt;
    return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
}

/// Takes the part of `rest` behind its last `mark` off it, and the mark; nothing where there is none.
std::optional<std::string> TakeLastPart(std::string_view& rest, char mark) {
    const std::size_t at = rest.rfind(mark);
    if (at == std::string_view::npos) return std::nullopt;
    std::string part(rest.substr(at + 1));
    rest = rest.substr(0, at);
    return part;
}

std::optional<Design> ReadableDesign(const std::filesystem::path& file) {
    try {
        return ReadCircuit(file);
    } catch (const Fault&) {
        return std::nullopt;
    }
}

/// Calls visit(path) for every file of a folder whose name ends so.
template <typename Visit>
void ForEachFile(const std::filesystem::path& folder, std::string_view ending, Visit visit) {
    std::error_code none;
    auto entry = std::filesystem::directory_iterator(folder, none);
    for (; !none && entry != std::filesystem::directory_iterator(); entry.increment(none)) {
        if (TextFromPath(entry->path().filename()).ends_with(ending)) visit(entry->path());
    }
}

} // namespace

std::string HandleOf(const RecoveryName& name) {
    return EscapedName(name.Design) + '~' + TimeText(name.Begun) + '~' + name.Owner + '-' + std::to_string(name.Number);
}

std::string FileNameOf(const RecoveryName& name) {
    return HandleOf(name) + std::string(name.IsKept ? KeptMark : "") + std::string(Ending);
}

std::optional<RecoveryName> RecoveryNameIn(const std::string& fileName) {
    std::string_view rest = fileName;
    if (!rest.ends_with(Ending)) return std::nullopt;
    rest.remove_suffix(Ending.size());
    RecoveryName name;
    name.IsKept = rest.ends_with(KeptMark);
    if (name.IsKept) rest.remove_suffix(KeptMark.size());
    const auto number = TakeLastPart(rest, '-');
    const auto owner = TakeLastPart(rest, '~');
    const auto time = TakeLastPart(rest, '~');
    if (!number || !owner || !time) return std::nullopt;
    const auto begun = TimeIn(*time);
    const char* const end = number->data() + number->size();
    if (!begun || std::from_chars(number->data(), end, name.Number).ptr != end) return std::nullopt;
    name.Begun = *begun;
    name.Owner = *owner;
    name.Design = UnescapedName(rest);
    return name;
}

int RecoveredWork::Pieces() const {
    int pieces = 0;
    if (Content) {
        for (const Track& track : Content->Circuit.Tracks)
            pieces += track.ElementLastIndex() + 1;
    }
    return pieces;
}

std::vector<RecoveredWork> FindRecoveredWork(const std::filesystem::path& folder) {
    std::vector<RecoveredWork> found;
    ForEachFile(folder, Ending, [&](const std::filesystem::path& file) {
        const auto name = RecoveryNameIn(TextFromPath(file.filename()));
        std::error_code gone;
        const auto written = std::filesystem::last_write_time(file, gone);
        if (!name || gone) return;
        const bool isAlive = !name->IsKept && LifeSign::IsAlive(LifeSignOf(folder, name->Owner));
        const auto time =
            std::chrono::time_point_cast<std::chrono::system_clock::duration>(std::chrono::file_clock::to_sys(written));
        found.push_back({file, *name, time, isAlive, std::nullopt});
    });
    std::ranges::sort(found, [](const RecoveredWork& a, const RecoveredWork& b) {
        return a.Written != b.Written ? a.Written > b.Written : a.File < b.File;
    });
    return found;
}

std::vector<RecoveredWork> WithContent(std::vector<RecoveredWork> works) {
    for (RecoveredWork& work : works)
        work.Content = ReadableDesign(work.File);
    return works;
}

bool RemoveRecoveredWork(const std::filesystem::path& file) {
    std::error_code notThere;
    std::filesystem::remove(BackgroundFileOf(file), notThere);
    return std::filesystem::remove(file, notThere);
}

std::filesystem::path LifeSignOf(const std::filesystem::path& folder, const std::string& owner) {
    return folder / PathFromText(owner + std::string(LifeSignEnding));
}

void TidyRecoveredWork(const std::filesystem::path& folder) {
    std::size_t works = 0;
    std::error_code gone;
    for (const RecoveredWork& work : FindRecoveredWork(folder)) {
        if (!work.OwnerLives && ++works > MostWorks) RemoveRecoveredWork(work.File);
    }
    ForEachFile(folder, LifeSignEnding, [&](const std::filesystem::path& sign) {
        if (!LifeSign::IsAlive(sign)) std::filesystem::remove(sign, gone);
    });
    SweepTemporaries(folder);
}

} // namespace pistaro
