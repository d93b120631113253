#include "commands/commands.h"

#include "commands/command_groups.h"

#include <algorithm>

namespace pistaro {

std::string PlainCaption(std::string_view caption) {
    constexpr std::string_view dots = "…";
    std::string plain(caption);
    if (plain.ends_with(dots)) plain.resize(plain.size() - dots.size());
    std::erase(plain, '&');
    return plain;
}

CommandTable::CommandTable(const Catalogue& catalogue) {
    AddCircuitCommands(rows_);
    AddRecentCommands(rows_);
    AddHistoryCommands(rows_);
    AddModes(rows_);
    AddPieceCommands(rows_, catalogue);
    AddTrackChanges(rows_);
    AddClosingCommands(rows_);
    AddLayingCommands(rows_);
    AddMoves(rows_);
    AddTrackChoices(rows_);
    AddViewCommands(rows_);
    AddCanvasCommands(rows_);
    AddBackgroundCommands(rows_);
    AddSettingsCommands(rows_);
    AddReportCommands(rows_);
    AddCheckCommands(rows_);
    AddExchangeCommands(rows_);
    AddHelpCommands(rows_);
    AddPaletteCommands(rows_, catalogue);
}

const Command* CommandTable::Find(std::string_view id) const {
    const auto found = std::ranges::find(rows_, id, &Command::Id);
    return found == rows_.end() ? nullptr : &*found;
}

} // namespace pistaro
