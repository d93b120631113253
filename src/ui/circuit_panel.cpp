#include "ui/circuit_panel.h"

#include "editor/view_commands.h"
#include "ui/key_scroll_bar.h"
#include "ui/line_icon.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int Gap = 4;

void SetUp(QScrollBar& bar, const ScrollBar& values, int smallStep, int largeStep) {
    const QSignalBlocker quiet(bar);
    bar.setRange(values.Minimum, values.Maximum);
    bar.setSingleStep(smallStep);
    bar.setPageStep(largeStep);
    bar.setValue(values.Value);
}

} // namespace

CircuitPanel::CircuitPanel(Session& session, CommandControls& controls)
    : session_(session), view_(new CircuitView(session)), hMov_(new KeyScrollBar(Qt::Horizontal)),
      vMov_(new KeyScrollBar(Qt::Vertical)), tools_(Tools(controls)) {
    hMov_->setObjectName("hMov");
    hMov_->setToolTip("Move the view left and right");
    hMov_->setAccessibleName("Left and right");
    vMov_->setObjectName("vMov");
    vMov_->setAccessibleName("Up and down");
    vMov_->setToolTip("Move the view up and down");
    for (QWidget* const child :
         {static_cast<QWidget*>(view_), static_cast<QWidget*>(vMov_), static_cast<QWidget*>(hMov_), tools_})
        child->setParent(this);
    connect(hMov_, &QScrollBar::valueChanged, this,
            [this](int value) { session_.Do([&] { ScrollHorizontally(session_.Project.Design.View, value); }); });
    connect(vMov_, &QScrollBar::valueChanged, this,
            [this](int value) { session_.Do([&] { ScrollVertically(session_.Project.Design.View, value); }); });
    setMinimumSize(300, 230);
}

QWidget* CircuitPanel::Tools(CommandControls& controls) {
    auto* const tools = new QWidget;
    auto* const row = new QHBoxLayout(tools);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Gap);
    constexpr std::pair<std::string_view, const char*> buttons[] = {
        {"zoom out", "zoom-out"}, {"zoom in", "zoom-in"}, {"fit", "fit"}, {"refresh", "refresh"}};
    for (const auto& [id, icon] : buttons) {
        auto* const button = new QToolButton;
        controls.Bind(*button, id);
        ShowIcon(*button, icon, id.starts_with("zoom") ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setAutoRepeat(id.starts_with("zoom"));
        row->addWidget(button);
    }
    return tools;
}

void CircuitPanel::Refresh() {
    const ViewSettings& view = session_.Project.Design.View;
    const int smallStep = SmallScrollStep(view);
    const int largeStep = LargeScrollStep(view);
    SetUp(*hMov_, view.HMov, smallStep, largeStep);
    SetUp(*vMov_, view.VMov, smallStep, largeStep);
}

void CircuitPanel::TakeStrip(Strip& strip) {
    strips_.push_back(&strip);
    strip.setParent(this);
    strip.installEventFilter(this);
}

bool CircuitPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent) {
        for (Strip* const strip : strips_) {
            if (strip != watched && !strip->isHidden()) strip->Leave();
        }
    }
    const bool changesHeight = event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent ||
                               event->type() == QEvent::LayoutRequest;
    if (changesHeight) Arrange();
    return false;
}

void CircuitPanel::resizeEvent(QResizeEvent*) { Arrange(); }

void CircuitPanel::Arrange() {
    const int barWidth = vMov_->sizeHint().width();
    const int barHeight = hMov_->sizeHint().height();
    const QSize tools = tools_->sizeHint();
    const auto shown = std::ranges::find_if(strips_, [](const Strip* strip) { return !strip->isHidden(); });
    const int stripHeight = shown == strips_.end() ? 0 : (*shown)->sizeHint().height() + Gap;
    const QSize canvas(std::max(0, width() - barWidth), std::max(0, height() - tools.height() - Gap - stripHeight));
    view_->setGeometry(QRect(QPoint(0, 0), canvas));
    vMov_->setGeometry(canvas.width(), 0, barWidth, canvas.height());
    tools_->setGeometry(width() - tools.width(), canvas.height() + Gap, tools.width(), tools.height());
    hMov_->setGeometry(0, canvas.height() + Gap + (tools.height() - barHeight) / 2, tools_->x() - 2 * Gap, barHeight);
    if (shown != strips_.end()) (*shown)->setGeometry(0, height() - stripHeight + Gap, width(), stripHeight - Gap);
}

} // namespace pistaro
