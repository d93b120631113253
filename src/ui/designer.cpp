#include "ui/designer.h"

#include "commands/recovery.h"
#include "platform/places.h"
#include "platform/processes.h"
#include "ui/desktop_colours.h"
#include "ui/frmAbout.h"
#include "ui/frmCorvel.h"
#include "ui/frmRecovered.h"
#include "ui/message_prompts.h"
#include "ui/screen_fit.h"
#include "ui/window_settings.h"

#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTimer>

namespace pistaro {

namespace {

void CloseOnLogOff(QApplication& application, frmCorvel& window, Recovery& recovery) {
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, [&](QSessionManager& session) {
        if (!LetsLogOff(window, recovery, session.allowsInteraction())) session.cancel();
    });
}

/// The system's request to end asks what Quit asks, too.
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

bool LetsLogOff(frmCorvel& window, Recovery& recovery, bool mayAsk) {
    recovery.Secure();
    return !mayAsk || window.close();
}

void BeginDesigning(frmCorvel& window, Session& session, const std::vector<Message>& messages,
                    const DesignerOptions& options) {
    const auto begin = [&window, &session, messages, circuit = options.Circuit] {
        for (const Message& message : messages)
            session.Prompts.Tell(message);
        if (circuit) window.Open(*circuit);
        session.ForgetHistory(); // it is what this start is about
        if (session.Recovery != nullptr && !session.Recovery->Untold().empty())
            ShowModally(frmRecovered(session, frmRecovered::Occasion::Start, &window));
    };
    const auto showWindow = [&window, begin] {
        window.show();
        QTimer::singleShot(0, &window, begin); // when the opening window is gone
    };
    if (options.NoSplash) {
        showWindow();
    } else {
        (new frmAbout(session.Catalogue, showWindow))->show();
    }
}

int RunDesigner(int argc, char** argv, const Catalogue& catalogue, const DesignerOptions& options) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Pistaro");
    QApplication::setDesktopFileName("pistaro");
    const DesktopFollower follower(application);
    TerminationRequests(); // those that come before there is a window wait for it
    MessagePrompts prompts;
    const DesignerStart start = StartDesigner(catalogue, options.SettingsFile.value_or(SettingsPath()));
    Session session(catalogue, prompts, start.Project, start.SettingsPath);
    session.Recent = RecentCircuits(RecentPath());
    const Jobs::Post post = [&](std::function<void()> call) {
        QMetaObject::invokeMethod(&application, std::move(call), Qt::QueuedConnection);
    };
    Recovery recovery(session, RecoveryFolder(), post);
    frmCorvel window(session);
    RestoreWindow(WindowSettingsPath(), window, session);
    WindowKeeper keeper(WindowSettingsPath(), window, session);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &keeper, &WindowKeeper::Keep);
    CloseOnLogOff(application, window, recovery);
    CloseOnTermination(window);
    BeginDesigning(window, session, start.Messages, options);
    return QApplication::exec();
}

} // namespace pistaro
