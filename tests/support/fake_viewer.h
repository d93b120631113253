// A stand-in for the program that shows web pages: writes down how it was started.
#pragma once

#include "support/temporary_folder.h"

#include <string>
#include <vector>

namespace pistaro {

/// While it lives, no program that shows web pages is found.
class NoViewer {
public:
    NoViewer();
    ~NoViewer();
    NoViewer(const NoViewer&) = delete;
    NoViewer& operator=(const NoViewer&) = delete;

private:
    std::string before_;
};

/// While it lives, the program that shows web pages is this one.
class FakeViewer {
public:
    FakeViewer();
    ~FakeViewer();
    FakeViewer(const FakeViewer&) = delete;
    FakeViewer& operator=(const FakeViewer&) = delete;

    /// The arguments of the one start that is waited for, ten seconds at most; empty when none came.
    std::vector<std::string> Arguments() const;

    /// Whether it has been started by now.
    bool WasStarted() const;

private:
    TemporaryFolder folder_;
    std::string before_;
};

} // namespace pistaro
