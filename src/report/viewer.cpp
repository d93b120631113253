// The viewer's command line.
#include "report/viewer.h"

#include "platform/files.h"
#include "platform/processes.h"

namespace pistaro {

void OpenInViewer(const std::string& page) {
    StartProgram(ShortPath(WithoutSwitches(FindHtmlViewer())), ShortPath(page));
}

void OpenManual(const Project& project) {
    OpenInViewer(project.WorkingDirectory + "manual" + FolderSeparator() + "help.html");
}

} // namespace pistaro
