// What ends a command before its time: the run-time's errors, told to the user in one place.
#pragma once

#include <stdexcept>
#include <string>

namespace pistaro {

/// A contained run-time error. Whoever throws one has changed nothing that outlives the command.
class Fault : public std::runtime_error {
public:
    /// `kind` is the error's own name ("Path not found"), `detail` names file, line and reason as far as there are any.
    Fault(const std::string& kind, const std::string& detail) : std::runtime_error(kind + ": " + detail) {}
};

inline Fault SubscriptOutOfRange(const std::string& detail) { return {"Subscript out of range", detail}; }
inline Fault InputPastEndOfFile(const std::string& detail) { return {"Input past end of file", detail}; }
inline Fault InvalidProcedureCall(const std::string& detail) { return {"Invalid procedure call", detail}; }
inline Fault Overflow(const std::string& detail) { return {"Overflow", detail}; }
inline Fault TypeMismatch(const std::string& detail) { return {"Type mismatch", detail}; }
inline Fault InvalidPicture(const std::string& detail) { return {"Invalid picture", detail}; }
inline Fault BadFileFormat(const std::string& detail) { return {"Bad file format", detail}; }

} // namespace pistaro
