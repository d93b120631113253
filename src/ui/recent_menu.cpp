#include "ui/recent_menu.h"

#include "platform/files.h"
#include "ui/named_controls.h"
#include "ui/tip_place.h"

namespace pistaro {

RecentMenu::RecentMenu(Session& session, QWidget* parent)
    : QMenu("&Recent", parent), session_(session), controls_(session) {
    setObjectName("mnuRecentCircuits");
    setToolTipsVisible(true);
    KeepTipsBeside(*this);
    for (std::size_t at = 0; at < RecentCircuits::Most; ++at)
        circuits_.append(controls_.AddEntry(*this, "recent " + std::to_string(at + 1)));
    addSeparator();
    controls_.AddEntry(*this, "recent clear");
    connect(this, &QMenu::aboutToShow, this, [this] { Refresh(); });
}

void RecentMenu::Refresh() {
    session_.Recent.Read();
    controls_.Refresh();
    const auto& list = session_.Recent.List();
    for (qsizetype at = 0; at < circuits_.size(); ++at) {
        QAction& entry = *circuits_[at];
        const auto place = static_cast<std::size_t>(at);
        entry.setVisible(place < list.size());
        if (entry.isVisible() && entry.isEnabled()) entry.setToolTip(Shown(TextFromPath(list[place])));
    }
}

} // namespace pistaro
