// Settings, window, circuit; and the ways in which the system ends the program.
#include "ui/designer.h"

#include "editor/start_up.h"
#include "ui/frmAbout.h"
#include "ui/frmCorvel.h"
#include "ui/message_prompts.h"

#include <QApplication>
#include <QSessionManager>
#include <QTimer>

namespace pistaro {

int RunDesigner(int argc, char** argv, const DesignerFiles& files) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Pistaro");
    QApplication::setDesktopFileName("pistaro");
    MessagePrompts prompts;
    DesignerStart start = StartDesigner(files.Settings);
    frmCorvel window(start.Design, prompts);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, [&](QSessionManager& session) {
        if (session.allowsInteraction() && !window.close()) session.cancel();
    });
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
