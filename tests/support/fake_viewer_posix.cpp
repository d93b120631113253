// A script that writes its arguments, a line each, into a file beside it.
#include "support/fake_viewer.h"

#include <chrono>
#include <cstdlib>
#include <sstream>
#include <thread>

namespace pistaro {

namespace {

std::vector<std::string> LinesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

NoViewer::NoViewer() : before_(std::getenv("PATH")) { ::setenv("PATH", "/no/such/folder", 1); }
NoViewer::~NoViewer() { ::setenv("PATH", before_.c_str(), 1); }

FakeViewer::FakeViewer() : before_(std::getenv("PATH")) {
    const auto program = folder_ / "xdg-open";
    WriteBytes(program,
               "#!/bin/sh\ncd '" + folder_.Path().string() + "'\nprintf '%s\\n' \"$@\" >writing\nmv writing started\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    ::setenv("PATH", (folder_.Path().string() + ":" + before_).c_str(), 1);
}

FakeViewer::~FakeViewer() { ::setenv("PATH", before_.c_str(), 1); }

std::vector<std::string> FakeViewer::Arguments() const {
    using namespace std::chrono_literals;
    for (int i = 0; i < 1000 && !WasStarted(); ++i)
        std::this_thread::sleep_for(10ms);
    return LinesOf(BytesOf(folder_ / "started"));
}

bool FakeViewer::WasStarted() const { return std::filesystem::exists(folder_ / "started"); }

} // namespace pistaro
