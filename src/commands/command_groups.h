// The table's rows by what they are about; `CommandTable` puts the groups together.
#pragma once

#include "commands/commands.h"

namespace pistaro {

// circuit_rows.cpp
void AddCircuitCommands(std::vector<Command>& rows);
void AddRecentCommands(std::vector<Command>& rows);
void AddHistoryCommands(std::vector<Command>& rows);

// building_rows.cpp
void AddModes(std::vector<Command>& rows);
void AddPieceCommands(std::vector<Command>& rows, const Catalogue& catalogue);
void AddTrackChanges(std::vector<Command>& rows);
void AddClosingCommands(std::vector<Command>& rows);
void AddLayingCommands(std::vector<Command>& rows);
void AddMoves(std::vector<Command>& rows);
void AddTrackChoices(std::vector<Command>& rows);

// view_rows.cpp
void AddViewCommands(std::vector<Command>& rows);
void AddBackgroundCommands(std::vector<Command>& rows);

// canvas_rows.cpp
void AddCanvasCommands(std::vector<Command>& rows);

// report_rows.cpp
void AddSettingsCommands(std::vector<Command>& rows);
void AddReportCommands(std::vector<Command>& rows);
void AddCheckCommands(std::vector<Command>& rows);
void AddExchangeCommands(std::vector<Command>& rows);
void AddHelpCommands(std::vector<Command>& rows);

// palette_rows.cpp
void AddPaletteCommands(std::vector<Command>& rows, const Catalogue& catalogue);

} // namespace pistaro
