// Calls to the system that fail when they are told to: open, write, fsync, rename, close, mkdir and their kin, counted
// together where they concern a folder. A test that is linked with this has it in itself; another program gets it
// preloaded, and is told by its environment:
//   FAILING_FOLDER=PATH  FAILING_CALL=N  FAILING_ERROR=NUMBER  FAILING_REPORT=FILE (gets a line when the call has
//   failed)
#pragma once

#include <string>

namespace pistaro {

/// In place of an error: a write takes only half of its bytes. Other calls go through.
inline constexpr int ShortWrite = -1;

/// From now on the `call`-th call, from 1, that concerns something in `folder` fails with this error of errno.
void FailCall(const std::string& folder, int call, int error);

/// Lets all calls go through again. Gives the call that has failed and what it concerned; empty when none did.
std::string StopFailing();

} // namespace pistaro
