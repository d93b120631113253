// What a refused action says.
#pragma once

#include "platform/fault.h"

#include <functional>
#include <string>

namespace pistaro {

/// The text of the fault that `action` ends with, or that it ended with none, or with what is no fault.
inline std::string FaultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Fault& fault) {
        return fault.what();
    } catch (const std::exception& other) {
        return std::string("not a fault: ") + other.what();
    }
    return "no fault";
}

} // namespace pistaro
