// A day in a minute: the designer itself, from start to end and again, under a user who presses anything.
//   soak EVENTS [SEED]
// Ends with status 1 where memory grows beyond what the history may hold; any other fault ends it by itself. Everything
// is read and written in a temporary folder.
#include "catalogue/catalogue.h"
#include "soak/random_user.h"
#include "support/circuit_text.h"
#include "support/temporary_folder.h"
#include "ui/designer.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <unistd.h>

/// Of the address sanitizer, which counts by itself.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

namespace {

using namespace pistaro;

constexpr std::size_t Megabyte = 1 << 20;
constexpr std::size_t MostGrowth = 96 * Megabyte; ///< the history's 64, and pictures and windows that happen to be open
constexpr unsigned LongestAct = 120;              ///< seconds

std::size_t AllocatedBytes() {
    if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// What the user meets when the designer starts, in every start of it.
struct Day {
    RandomUser User;
    int Events;
    int Starts = 0;
    std::size_t InTheMorning = 0; ///< allocated after a tenth of the events
    std::size_t InTheEvening = 0; ///< and after the last
};

Day* today = nullptr;

/// Once, and again whenever the designer waits, be it in a dialog that this has opened.
void Act() {
    if (today->User.Acts() >= today->Events) return;
    QMetaObject::invokeMethod(QCoreApplication::instance(), Act, Qt::QueuedConnection);
    ::alarm(LongestAct); // what hangs is ended by it
    today->User.Act();
    if (today->User.Acts() == today->Events / 10) today->InTheMorning = AllocatedBytes();
    if (today->User.Acts() != today->Events) return;
    today->InTheEvening = AllocatedBytes();
    QApplication::exit();
}

/// Called by each start of the designer.
void BeginActing() {
    if (today == nullptr) return;
    ++today->Starts;
    QMetaObject::invokeMethod(QCoreApplication::instance(), Act, Qt::QueuedConnection);
}
Q_COREAPP_STARTUP_FUNCTION(BeginActing)

/// What the offscreen platform lacks is no news.
void TellWarning(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", qPrintable(text));
}

/// A home with a circuit to load, a file that is none, and no viewer for web pages.
void Furnish(const TemporaryFolder& home) {
    ::setenv("HOME", home.Path().c_str(), 1);
    std::filesystem::create_directory(home / "run");
    std::filesystem::permissions(home / "run", std::filesystem::perms::owner_all);
    ::setenv("XDG_RUNTIME_DIR", (home / "run").c_str(), 1);
    for (const char* const name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "DISPLAY", "WAYLAND_DISPLAY"})
        ::unsetenv(name);
    ::setenv("PATH", "/nonexistent", 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const auto files = home / "files";
    std::filesystem::create_directories(files / "folder.trk");
    WriteBytes(files / "one.trk", CircuitText("C160 C151L C151R C160"));
    WriteBytes(files / "two.trk", "no circuit");
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const auto seed = argc > 2 ? static_cast<unsigned>(std::atoll(argv[2])) : std::random_device()();
    const TemporaryFolder home;
    Furnish(home);
    Day day{.User = RandomUser(seed, home / "files"), .Events = std::atoi(argv[1])};
    today = &day;
    qInstallMessageHandler(TellWarning);
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    const Catalogue catalogue = InitCatalogue();
    while (day.User.Acts() < day.Events) {
        std::array<char*, 2> arguments{argv[0], nullptr};
        RunDesigner(1, arguments.data(), catalogue,
                    {.Circuit = {}, .SettingsFile = home / "config" / "corvel.ini", .NoSplash = true});
    }
    std::printf("%d events, %d starts, %d dialogs and menus; %zu KB in the morning, %zu KB in the evening\n",
                day.User.Acts(), day.Starts, day.User.Dialogs(), day.InTheMorning / 1024, day.InTheEvening / 1024);
    for (const std::string& name : day.User.Met())
        std::printf("met: %s\n", name.c_str());
    return day.InTheEvening > day.InTheMorning + MostGrowth ? 1 : 0;
}
