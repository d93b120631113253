// How a fuzzer says that a rule of the system is broken: by an end that libFuzzer takes for a crash.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace pistaro {

inline void Require(bool holds, const char* rule, const std::string& detail = "") {
    if (holds) return;
    std::fprintf(stderr, "BROKEN: %s: %s\n", rule, detail.c_str());
    std::abort();
}

} // namespace pistaro
