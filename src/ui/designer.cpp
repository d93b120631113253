// Settings, window, circuit; and the ways in which the system ends the program.
#include "ui/designer.h"

#include "editor/start_up.h"
#include "platform/processes.h"
#include "ui/frmAbout.h"
#include "ui/frmCorvel.h"
#include "ui/message_prompts.h"

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTimer>

namespace pistaro {

namespace {

/// A log-off asks what Quit asks, where it leaves the time for it.
void CloseOnLogOff(QApplication& application, frmCorvel& window) {
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, [&window](QSessionManager& session) {
        if (session.allowsInteraction() && !window.close()) session.cancel();
    });
}

/// So does the system's request to end.
void CloseOnTermination(frmCorvel& window) {
    const int requests = TerminationRequests();
    if (requests < 0) return;
    auto* const notifier = new QSocketNotifier(requests, QSocketNotifier::Read, &window);
    QObject::connect(notifier, &QSocketNotifier::activated, &window, [&window] {
        TakeTerminationRequest();
        if (window.close()) QApplication::quit(); // also where a dialog stands open
    });
}

} // namespace

int RunDesigner(int argc, char** argv, const DesignerFiles& files) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Pistaro");
    QApplication::setDesktopFileName("pistaro");
    TerminationRequests(); // those that come before there is a window wait for it
    MessagePrompts prompts;
    DesignerStart start = StartDesigner(files.Settings);
    frmCorvel window(start.Design, prompts);
    CloseOnLogOff(application, window);
    CloseOnTermination(window);
    const auto begin = [&] {
        for (const Message& message : start.Messages)
            prompts.Tell(message);
        if (files.Circuit) window.Open(*files.Circuit);
    };
    const auto showWindow = [&] {
        window.show();
        QTimer::singleShot(0, &window, begin); // when the opening window is gone
    };
    if (files.NoSplash) {
        showWindow();
    } else {
        (new frmAbout(showWindow))->show();
    }
    return QApplication::exec();
}

} // namespace pistaro
