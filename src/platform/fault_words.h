// What is told of whatever ended a piece of work.
#pragma once

#include <exception>
#include <new>

namespace pistaro {

/// A fault's own words; those of the library say nothing to users where memory has ended.
inline const char* WordsOf(const std::exception& fault) {
    return dynamic_cast<const std::bad_alloc*>(&fault) != nullptr ? "Out of memory" : fault.what();
}

} // namespace pistaro
