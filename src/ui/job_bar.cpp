#include "ui/job_bar.h"

#include "ui/named_controls.h"

#include <QHBoxLayout>
#include <QMetaObject>

namespace pistaro {

namespace {

constexpr int BarMargin = 24; ///< on both sides of the text

} // namespace

JobBar::JobBar(Session& session, CommandControls& controls)
    : session_(session), prgJob_(Named(new QProgressBar, "prgJob")) {
    auto* const cmdCancelJob = new QToolButton;
    controls.Bind(*cmdCancelJob, "cancel job");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(prgJob_);
    prgJob_->setAccessibleName("Progress");
    row->addWidget(cmdCancelJob);
    session_.RunJobsBeside(
        [this](std::function<void()> call) { QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection); },
        [this](int done, int total) {
            MakeRoomFor(total);
            prgJob_->setMaximum(total);
            prgJob_->setValue(done);
        });
    hide();
}

JobBar::~JobBar() {
    session_.CancelJob(); // its end would be looked for here
    session_.RunJobsBeside({}, {});
}

void JobBar::Refresh() {
    const Job* const job = session_.CurrentJob();
    if (job != nullptr && isHidden()) Begin(QString::fromStdString(job->Name));
    setVisible(job != nullptr);
}

void JobBar::Begin(const QString& job) {
    prgJob_->reset();
    prgJob_->setFormat(QString(job).replace('%', "%%") + ": %v of %m");
    prgJob_->setFixedWidth(0);
    MakeRoomFor(100); // most are no longer, and a bar that stays as wide is calmer
}

void JobBar::MakeRoomFor(int total) {
    const QString longest = prgJob_->format().replace("%v", "%m").replace("%m", QString::number(total));
    const int width = prgJob_->fontMetrics().horizontalAdvance(longest) + 2 * BarMargin;
    if (width > prgJob_->minimumWidth()) prgJob_->setFixedWidth(width);
}

} // namespace pistaro
