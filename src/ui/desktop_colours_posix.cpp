// Desktops tell what their users wish through the settings portal.
#include "ui/desktop_colours.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace pistaro {

namespace {

constexpr const char* Service = "org.freedesktop.portal.Desktop";
constexpr const char* Path = "/org/freedesktop/portal/desktop";
constexpr const char* Interface = "org.freedesktop.portal.Settings";
constexpr int Patience = 500; ///< milliseconds that a start waits for an answer

/// A setting of the desktop; invalid where it has none of that name.
QVariant Setting(const char* group, const char* key) {
    QDBusMessage question = QDBusMessage::createMethodCall(Service, Path, Interface, "Read");
    question << QString(group) << QString(key);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, Patience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
    QVariant value = answer.arguments().constFirst();
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

DesktopPreference AskDesktop() {
    if (!QDBusConnection::sessionBus().isConnected()) return {};
    constexpr const char* appearance = "org.freedesktop.appearance";
    const QVariant scheme = Setting(appearance, "color-scheme");
    if (!scheme.isValid()) return {}; // and no more is waited for
    return {.Dark = scheme.toInt() == 1,
            .HighContrast = Setting(appearance, "contrast").toInt() == 1 ||
                            Setting("org.gnome.desktop.a11y.interface", "high-contrast").toBool()};
}

void HearDesktop(QObject& follower) {
    QDBusConnection::sessionBus().connect(Service, Path, Interface, "SettingChanged", &follower, SLOT(Ask()));
}

} // namespace pistaro
