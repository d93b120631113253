#include "ui/found_banner.h"

#include "ui/named_controls.h"

#include <QHBoxLayout>

#include <algorithm>

namespace pistaro {

FoundBanner::FoundBanner(std::function<void()> searchAgain)
    : lblFound_(Named(new QLabel, "lblFound")), cmdSearchAgain_(NewButton("cmdSearchAgain", "Search Again")) {
    setObjectName("pnlFound");
    lblFound_->setWordWrap(true);
    cmdSearchAgain_->setToolTip("Search in the box and the room as they are now; those that are shown go");
    cmdSearchAgain_->hide();
    // So that nothing below moves when the button comes, nor when the text takes two lines beside it.
    setMinimumHeight(std::max(cmdSearchAgain_->sizeHint().height(), 2 * lblFound_->fontMetrics().lineSpacing()));
    connect(cmdSearchAgain_, &QPushButton::clicked, this, std::move(searchAgain));
    auto* const row = new QHBoxLayout(this);
    row->addWidget(lblFound_, 1);
    row->addWidget(cmdSearchAgain_);
}

void FoundBanner::Show(const QString& text, bool isOutdated, bool canSearch) {
    constexpr int margin = 6;
    lblFound_->setText(text);
    cmdSearchAgain_->setVisible(isOutdated);
    cmdSearchAgain_->setEnabled(canSearch);
    setAutoFillBackground(isOutdated);
    setBackgroundRole(isOutdated ? QPalette::ToolTipBase : QPalette::Window);
    lblFound_->setForegroundRole(isOutdated ? QPalette::ToolTipText : QPalette::WindowText);
    layout()->setContentsMargins(isOutdated ? margin : 0, 0, isOutdated ? margin : 0, 0);
}

} // namespace pistaro
