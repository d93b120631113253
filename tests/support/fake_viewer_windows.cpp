// A batch file, registered for web pages, that writes its argument into a file beside it.
#include "support/fake_viewer.h"

#include "platform/files.h"
#include "support/classes_key_windows.h"

#include <windows.h>

#include <array>
#include <chrono>
#include <memory>
#include <thread>

namespace pistaro {

namespace {

constexpr const char* Type = "PistaroTest.Page";
std::unique_ptr<ClassesKey> type, command;

std::string LongForm(const std::string& path) {
    std::array<wchar_t, 1024> buffer{};
    const DWORD length = ::GetLongPathNameW(PathFromText(path).c_str(), buffer.data(), 1024);
    return length == 0 ? path : TextFromPath(std::filesystem::path(buffer.data()));
}

} // namespace

NoViewer::NoViewer() { type = std::make_unique<ClassesKey>(".htm", std::nullopt); }
NoViewer::~NoViewer() { type.reset(); }

FakeViewer::FakeViewer() {
    const auto program = folder_ / "viewer.bat";
    WriteBytes(program, "@echo off\r\ncd /d \"" + TextFromPath(folder_.Path()) +
                            "\"\r\necho %~1>writing\r\nren writing started\r\n");
    type = std::make_unique<ClassesKey>(".htm", Type);
    command = std::make_unique<ClassesKey>(std::string(Type) + "\\shell\\open\\command",
                                           "\"" + TextFromPath(program) + "\" \"%1\"");
}

FakeViewer::~FakeViewer() {
    command.reset();
    type.reset();
}

std::vector<std::string> FakeViewer::Arguments() const {
    using namespace std::chrono_literals;
    for (int i = 0; i < 1000 && !WasStarted(); ++i)
        std::this_thread::sleep_for(10ms);
    // Shared with the batch file, which for a moment still holds what it has renamed.
    const std::string line = ReadFile(folder_ / "started", 10000);
    const std::size_t end = line.find_last_not_of("\r\n ");
    if (end == std::string::npos) return {};
    return {LongForm(line.substr(0, end + 1))};
}

bool FakeViewer::WasStarted() const { return std::filesystem::exists(folder_ / "started"); }

} // namespace pistaro
