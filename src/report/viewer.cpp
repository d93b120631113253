#include "report/viewer.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/places.h"
#include "platform/processes.h"

namespace pistaro {

namespace {

constexpr const char* ManualPage = "help.html";

bool IsThere(const std::filesystem::path& file) {
    std::error_code none;
    return std::filesystem::exists(file, none);
}

} // namespace

void OpenInViewer(const std::string& page) {
    StartProgram(ShortPath(WithoutSwitches(FindHtmlViewer())), ShortPath(page));
}

std::string FindManual(const Preferences& preferences, const std::vector<std::filesystem::path>& elsewhere) {
    std::string besideCircuits = preferences.WorkingDirectory + "manual" + FolderSeparator() + ManualPage;
    if (IsThere(PathFromText(besideCircuits))) return besideCircuits;
    for (const std::filesystem::path& folder : elsewhere) {
        if (IsThere(folder / ManualPage)) return TextFromPath(folder / ManualPage);
    }
    throw Fault("File not found",
                "the manual is neither beside your circuits, " + besideCircuits + ", nor where Pistaro is installed");
}

void OpenManual(const Preferences& preferences) {
    std::vector<std::filesystem::path> folders{InstalledFolder() / "samples" / "manual"};
    if (const std::filesystem::path checkout = CheckoutFolder(); !checkout.empty())
        folders.push_back(checkout / "manual");
    OpenInViewer(FindManual(preferences, folders));
}

} // namespace pistaro
