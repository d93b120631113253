#include "ui/desktop_colours.h"

#include "imaging/painter_surface.h"
#include "ui/contrast_style.h"

#include <QStyleFactory>

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

struct RoleColours {
    QPalette::ColorRole Role;
    QRgb Enabled, Disabled;
};

// Words on their ground contrast by more than 7 to 1, disabled ones by more than 3 to 1.
constexpr RoleColours Dark[] = {
    {QPalette::Window, 0x2B2D31, 0x2B2D31},
    {QPalette::WindowText, 0xE8E9EB, 0x8A8F96},
    {QPalette::Base, 0x1E2023, 0x26282C},
    {QPalette::AlternateBase, 0x25272B, 0x26282C},
    {QPalette::Text, 0xE8E9EB, 0x8A8F96},
    {QPalette::Button, 0x393C41, 0x303236},
    {QPalette::ButtonText, 0xE8E9EB, 0x8A8F96},
    {QPalette::BrightText, 0xFF8A80, 0xFF8A80},
    {QPalette::ToolTipBase, 0x3E4147, 0x3E4147},
    {QPalette::ToolTipText, 0xF2F2F3, 0xF2F2F3},
    {QPalette::PlaceholderText, 0xA4A9B0, 0x8A8F96},
    {QPalette::Highlight, 0x2F6FC4, 0x4A4E55},
    {QPalette::HighlightedText, 0xFFFFFF, 0xC8CBCF},
    {QPalette::Link, 0x86B7FF, 0x8A8F96},
    {QPalette::LinkVisited, 0xC6A6FF, 0x8A8F96},
    {QPalette::Light, 0x4B4F56, 0x4B4F56},
    {QPalette::Midlight, 0x43464C, 0x43464C},
    {QPalette::Mid, 0x9AA0A8, 0x6A6F76},
    {QPalette::Dark, 0x17181A, 0x17181A},
    {QPalette::Shadow, 0x000000, 0x000000},
};

constexpr RoleColours WhiteOnBlack[] = {
    {QPalette::Window, 0x000000, 0x000000},
    {QPalette::WindowText, 0xFFFFFF, 0xB0B0B0},
    {QPalette::Base, 0x000000, 0x000000},
    {QPalette::AlternateBase, 0x1A1A1A, 0x000000},
    {QPalette::Text, 0xFFFFFF, 0xB0B0B0},
    {QPalette::Button, 0x000000, 0x000000},
    {QPalette::ButtonText, 0xFFFFFF, 0xB0B0B0},
    {QPalette::BrightText, 0xFFFF00, 0xFFFF00},
    {QPalette::ToolTipBase, 0x000000, 0x000000},
    {QPalette::ToolTipText, 0xFFFFFF, 0xFFFFFF},
    {QPalette::PlaceholderText, 0xD0D0D0, 0xB0B0B0},
    {QPalette::Highlight, 0xFFE800, 0x606060},
    {QPalette::HighlightedText, 0x000000, 0xFFFFFF},
    {QPalette::Link, 0x80C8FF, 0xB0B0B0},
    {QPalette::LinkVisited, 0xE0B0FF, 0xB0B0B0},
    {QPalette::Light, 0xFFFFFF, 0xFFFFFF},
    {QPalette::Midlight, 0xD0D0D0, 0xD0D0D0},
    {QPalette::Mid, 0xD0D0D0, 0x909090},
    {QPalette::Dark, 0xFFFFFF, 0xB0B0B0},
    {QPalette::Shadow, 0x000000, 0x000000},
};

constexpr RoleColours BlackOnWhite[] = {
    {QPalette::Window, 0xFFFFFF, 0xFFFFFF},
    {QPalette::WindowText, 0x000000, 0x555555},
    {QPalette::Base, 0xFFFFFF, 0xFFFFFF},
    {QPalette::AlternateBase, 0xEEEEEE, 0xFFFFFF},
    {QPalette::Text, 0x000000, 0x555555},
    {QPalette::Button, 0xFFFFFF, 0xFFFFFF},
    {QPalette::ButtonText, 0x000000, 0x555555},
    {QPalette::BrightText, 0xA00000, 0xA00000},
    {QPalette::ToolTipBase, 0xFFFFFF, 0xFFFFFF},
    {QPalette::ToolTipText, 0x000000, 0x000000},
    {QPalette::PlaceholderText, 0x404040, 0x555555},
    {QPalette::Highlight, 0x0A2A8C, 0x808080},
    {QPalette::HighlightedText, 0xFFFFFF, 0xFFFFFF},
    {QPalette::Link, 0x0000C0, 0x555555},
    {QPalette::LinkVisited, 0x5A00A0, 0x555555},
    {QPalette::Light, 0xFFFFFF, 0xFFFFFF},
    {QPalette::Midlight, 0xC0C0C0, 0xC0C0C0},
    {QPalette::Mid, 0x505050, 0x909090},
    {QPalette::Dark, 0x000000, 0x555555},
    {QPalette::Shadow, 0x000000, 0x000000},
};

template <std::size_t Count>
QPalette PaletteOf(const RoleColours (&roles)[Count]) {
    QPalette palette;
    for (const RoleColours& role : roles) {
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            palette.setColor(group, role.Role, QColor(role.Enabled));
        palette.setColor(QPalette::Disabled, role.Role, QColor(role.Disabled));
    }
    return palette;
}

} // namespace

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

bool HasHighContrast(const QPalette& palette) {
    constexpr int nearly = 250; // of 255
    const int ground = palette.color(QPalette::Active, QPalette::Window).lightness();
    return std::abs(ground - palette.color(QPalette::Active, QPalette::WindowText).lightness()) >= nearly;
}

QPalette PaletteFor(const DesktopPreference& wish) {
    if (wish.HighContrast) return wish.Dark ? PaletteOf(WhiteOnBlack) : PaletteOf(BlackOnWhite);
    return PaletteOf(Dark);
}

void ShowAsWished(const DesktopPreference& wish, const QPalette& toolkits) {
    const bool answered = (!wish.Dark || IsDark(toolkits)) && (!wish.HighContrast || HasHighContrast(toolkits));
    if (answered) {
        if (QApplication::palette() != toolkits) QApplication::setPalette(toolkits);
        return;
    }
    QApplication::setStyle(new ContrastStyle(QStyleFactory::create("Fusion"))); // others paint in colours of their own
    QApplication::setPalette(PaletteFor(wish));
}

DesktopFollower::DesktopFollower(QApplication& application)
    : QObject(&application), toolkits_(QApplication::palette()) {
    HearDesktop(*this);
    Ask();
    // A desktop that says nothing by itself is asked when its user comes back.
    connect(&application, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive) Ask();
    });
}

void DesktopFollower::Ask() {
    const DesktopPreference wish = AskDesktop();
    if (wish == wish_) return;
    wish_ = wish;
    ShowAsWished(wish, toolkits_);
}

} // namespace pistaro
