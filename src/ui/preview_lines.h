// The beginning of a file of text as a preview shows it: easier to read than the file, which stays as it is.
#pragma once

#include "commands/export_circuit.h"

#include <QString>

namespace pistaro {

/// Whole lines of a table, the lengths and angles of a table of pieces to three digits; JSON with an indented line for
/// each of its members. What is left out is "…".
QString PreviewLines(const std::string& bytes, ExportFormat format);

} // namespace pistaro
