#include "ui/frmBuildPlan.h"

#include "imaging/paper_page.h"
#include "ui/beside_preview.h"
#include "ui/choice_list.h"
#include "ui/drawn_parts_box.h"
#include "ui/named_controls.h"

#include <QEvent>
#include <QFormLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr QSize LeastPreview(300, 350);
constexpr std::size_t MostPages = 8; ///< in the preview

QString FactsText(const BuildPlan& plan) {
    QStringList lines;
    for (const std::string& fact : plan.Facts())
        lines << Shown(fact);
    if (!plan.StockIsKnown) lines << "What you lack is told here once Settings ▸ Loose Track knows what you own.";
    return lines.join("\n\n");
}

} // namespace

frmBuildPlan::frmBuildPlan(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setObjectName("frmBuildPlan");
    setWindowTitle("Build Plan");
    setModal(true);
    auto* const left = new QVBoxLayout;
    left->addWidget(ChoiceFrame());
    lblFacts_ = Named(new QLabel, "lblFacts");
    lblFacts_->setWordWrap(true);
    lblFacts_->setTextFormat(Qt::PlainText); // codes of unknown elements stand in it
    lblFacts_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    left->addWidget(lblFacts_, 1);
    LayOutBesidePreview(*this, left, PreviewColumn(), Buttons());
    constexpr int calm = 80; // milliseconds
    resized_.setSingleShot(true);
    resized_.setInterval(calm);
    connect(&resized_, &QTimer::timeout, this, [this] { DrawPages(); });
    PlanAgain();
}

QGroupBox* frmBuildPlan::ChoiceFrame() {
    auto* const frame = new QGroupBox("Plan");
    cboFormat_ = Named(new ChoiceList, "cboFormat");
    cboFormat_->addItem("Web page (HTML)", static_cast<int>(PlanFormat::Html));
    cboFormat_->addItem("Paper (PDF)", static_cast<int>(PlanFormat::Pdf));
    if (const auto last = PlanFormatOf("x" + session_.Habits.PlanEnding))
        cboFormat_->setCurrentIndex(cboFormat_->findData(static_cast<int>(*last)));
    lblFormat_ = Named(new QLabel, "lblFormat");
    lblFormat_->setWordWrap(true);
    constexpr int width = 300; // pixels, whatever is told
    lblFormat_->setFixedSize(width, 2 * lblFormat_->fontMetrics().lineSpacing());
    cboPaper_ = NewPaperList(session_.Habits.Paper);
    cboTrack_ = Named(new ChoiceList, "cboTrack");
    cboTrack_->addItem("All tracks", AllTracks);
    for (int track = 0; track < TrackCount; ++track) {
        const Track& one = session_.Project.Design.Circuit.Tracks[static_cast<std::size_t>(track)];
        if (!one.ElementCodes.empty()) cboTrack_->addItem(QString("Track %1").arg(track + 1), track);
    }
    auto* const form = new QFormLayout(frame);
    form->addRow("&Format:", cboFormat_);
    form->addRow(lblFormat_);
    form->addRow("&Paper:", cboPaper_);
    form->addRow("&Tracks:", cboTrack_);
    for (QComboBox* const list : {cboFormat_, cboPaper_, cboTrack_})
        connect(list, &QComboBox::currentIndexChanged, this, [this] { PlanAgain(); });
    return frame;
}

QLayout* frmBuildPlan::PreviewColumn() {
    picPage_ = Named(new QLabel, "picPage");
    picPage_->setAccessibleName("Preview of the plan");
    picPage_->setMinimumSize(LeastPreview);
    picPage_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored); // the page follows it, not it the page
    picPage_->installEventFilter(this);
    picPage_->setAlignment(Qt::AlignCenter);
    picPage_->setAutoFillBackground(true);
    picPage_->setBackgroundRole(QPalette::Mid);
    auto* const column = new QVBoxLayout;
    column->addWidget(picPage_, 1);
    column->addLayout(PageRow());
    return column;
}

QLayout* frmBuildPlan::PageRow() {
    const auto turn = [this](const char* name, Qt::ArrowType arrow, const char* words, int step) {
        auto* const button = Named(new QToolButton, name);
        button->setArrowType(arrow);
        button->setAccessibleName(words);
        button->setToolTip(words);
        connect(button, &QToolButton::clicked, this, [this, step] { ShowPage(page_ + step); });
        return button;
    };
    cmdPrevious_ = turn("cmdPrevious", Qt::LeftArrow, "Previous page", -1);
    cmdNext_ = turn("cmdNext", Qt::RightArrow, "Next page", 1);
    lblPage_ = Named(new QLabel, "lblPage");
    auto* const row = new QHBoxLayout;
    for (QWidget* const control : std::initializer_list<QWidget*>{cmdPrevious_, lblPage_, cmdNext_})
        row->addWidget(control);
    row->addStretch();
    return row;
}

QLayout* frmBuildPlan::Buttons() {
    QPushButton* const cmdWrite = NewButton("cmdWrite", "&Write…");
    QPushButton* const cmdClose = NewButton("cmdClose", "Close");
    cmdWrite->setDefault(true);
    connect(cmdWrite, &QPushButton::clicked, this, [this] { Write(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdWrite, cmdClose});
}

PlanFormat frmBuildPlan::Format() const { return static_cast<PlanFormat>(cboFormat_->currentData().toInt()); }

PaperSize frmBuildPlan::Paper() const { return FindPaper(cboPaper_->currentText().toStdString()).value_or(PaperA4); }

void frmBuildPlan::PlanAgain() {
    const bool onPaper = Format() == PlanFormat::Pdf;
    cboPaper_->setEnabled(onPaper);
    cboPaper_->setToolTip(onPaper ? "" : "A web page is as wide as its window, and is printed on any paper");
    lblFormat_->setText(onPaper ? "To print and lay beside the track."
                                : "For a browser, also on a telephone; the preview shows it as it is printed.");
    plan_ = BuildPlanOf(session_.Catalogue, session_.Project, cboTrack_->currentData().toInt());
    lblFacts_->setText(FactsText(plan_));
    page_ = 0;
    DrawPages();
}

void frmBuildPlan::DrawPages() {
    constexpr int desk = 10; // pixels around the paper
    const PaperSize paper = Format() == PlanFormat::Pdf ? Paper() : PaperA4;
    const QSize room = picPage_->size().expandedTo(LeastPreview) - QSize(2 * desk, 2 * desk);
    const double perCm = std::min(room.width() / paper.Width, room.height() / paper.Height);
    const double sharp = devicePixelRatioF();
    preview_ = PreviewBuildPlan(session_.Catalogue, plan_, paper, perCm * CmPerInch * sharp, MostPages);
    for (QImage& page : preview_.Pages)
        page.setDevicePixelRatio(sharp);
    ShowPage(page_);
}

bool frmBuildPlan::eventFilter(QObject* watched, QEvent* event) {
    if (watched == picPage_ && event->type() == QEvent::Resize) resized_.start();
    return QDialog::eventFilter(watched, event);
}

void frmBuildPlan::ShowPage(int page) {
    const int drawn = static_cast<int>(preview_.Pages.size());
    page_ = std::clamp(page, 0, drawn - 1);
    picPage_->setPixmap(QPixmap::fromImage(preview_.Pages[static_cast<std::size_t>(page_)]));
    const QString more = preview_.Count > drawn ? QString("; the first %1 are shown").arg(drawn) : QString();
    lblPage_->setText(QString("Page %1 of %2%3").arg(page_ + 1).arg(preview_.Count).arg(more));
    cmdPrevious_->setEnabled(page_ > 0);
    cmdNext_->setEnabled(page_ + 1 < drawn);
}

void frmBuildPlan::Write() {
    std::optional<PlanFormat> written;
    session_.Do([&] { written = WriteBuildPlan(session_, plan_, Format(), Paper()); });
    if (!written) return;
    session_.Habits.PlanEnding = EndingOf(*written);
    if (*written == PlanFormat::Pdf) session_.Habits.Paper = cboPaper_->currentText().toStdString();
}

} // namespace pistaro
