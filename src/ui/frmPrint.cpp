#include "ui/frmPrint.h"

#include "imaging/pdf_file.h"
#include "platform/fault.h"
#include "ui/beside_preview.h"
#include "ui/choice_list.h"
#include "ui/named_controls.h"
#include "ui/scale_box.h"

#include <QDate>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>

namespace pistaro {

namespace {

/// As it is remembered how large a circuit is printed.
constexpr const char *TilesHabit = "tiles", *RoundHabit = "round scale", *PageHabit = "page";

/// Under the choice that it goes with.
QLayout* Indented(QWidget* control) {
    constexpr int indent = 20; // pixels, of a radio button's mark
    auto* const row = new QHBoxLayout;
    row->addSpacing(indent);
    row->addWidget(control);
    return row;
}

std::string Today() { return QDate::currentDate().toString(Qt::ISODate).toStdString(); }

} // namespace

frmPrint::frmPrint(Session& session, QWidget* parent) : QDialog(parent), session_(session), date_(Today()) {
    setObjectName("frmPrint");
    setWindowTitle("Print");
    setModal(true);
    parts_ =
        new DrawnPartsBox(session.Project, PartsIn(session.Habits.PrintContents, {.Room = true, .StockColours = false}),
                          [this] { PlanAgain(); });
    auto* const left = new QVBoxLayout;
    left->addWidget(PaperFrame());
    left->addWidget(parts_);
    left->addStretch();
    LayOutBesidePreview(*this, left, PreviewColumn(), Buttons());
    BeginAsLastTime();
    connect(this, &QDialog::finished, this, [this] { Remember(); });
    PlanAgain();
}

QGroupBox* frmPrint::PaperFrame() {
    auto* const frame = new QGroupBox("Paper");
    auto* const form = new QFormLayout(frame);
    cboPaper_ = NewPaperList(session_.Habits.Paper);
    cboOrientation_ = Named(new ChoiceList, "cboOrientation");
    for (const char* const way : {"Whichever fits best", "Portrait", "Landscape"})
        cboOrientation_->addItem(way);
    form->addRow("P&aper:", cboPaper_);
    form->addRow("O&rientation:", cboOrientation_);
    for (QComboBox* const list : {cboPaper_, cboOrientation_})
        connect(list, &QComboBox::currentIndexChanged, this, [this] { PlanAgain(); });
    AddSizeRows(*form);
    return frame;
}

void frmPrint::AddSizeRows(QFormLayout& form) {
    optFit_ = Named(new QRadioButton("&Fit on one sheet"), "optSize", 0);
    optScale_ = Named(new QRadioButton("To &scale, in tiles"), "optSize", 1);
    optFit_->setChecked(true);
    spnScale_ = Named(new ScaleBox(1, 50, 1), "spnScale");
    chkRound_ = Named(new QCheckBox("At a roun&d scale"), "chkRound");
    chkRound_->setToolTip("A little smaller, so that a ruler tells lengths easily: 1:5, 1:10, 1:25 …");
    chkWalls_ = NewWallsBox(session_.Habits.PrintContents);
    form.addRow(optFit_);
    form.addRow(Indented(chkRound_));
    form.addRow(optScale_, spnScale_);
    form.addRow(Indented(chkWalls_));
    for (QCheckBox* const box : {chkRound_, chkWalls_})
        connect(box, &QCheckBox::toggled, this, [this] { PlanAgain(); });
    connect(optScale_, &QRadioButton::toggled, this, [this] { PlanAgain(); });
    connect(spnScale_, &QDoubleSpinBox::valueChanged, this, [this] { PlanAgain(); });
}

void frmPrint::BeginAsLastTime() {
    const Habits& habits = session_.Habits;
    if (const double scale = Shown(habits.PrintScale).toDouble(); scale > 0) spnScale_->setValue(scale);
    if (const int way = cboOrientation_->findText(Shown(habits.PrintOrientation)); way >= 0)
        cboOrientation_->setCurrentIndex(way);
    chkRound_->setChecked(habits.PrintSize == RoundHabit);
    optScale_->setChecked(habits.PrintSize == TilesHabit);
}

QLayout* frmPrint::PreviewColumn() {
    picSheet_ = Named(new SheetPreview(sheets_, date_), "picSheet");
    picSheet_->setAccessibleName("Preview of the sheet");
    spnSheet_ = Named(new QSpinBox, "spnSheet");
    spnSheet_->setPrefix("Sheet ");
    spnSheet_->setAccessibleName("Sheet shown");
    spnSheet_->setMinimum(1);
    connect(spnSheet_, &QSpinBox::valueChanged, this, [this] { ShowSheet(); });
    lblSheets_ = Named(new QLabel, "lblSheets");
    lblSheets_->setWordWrap(true);
    lblSheets_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblSheets_->setMinimumHeight(2 * lblSheets_->fontMetrics().lineSpacing()); // whatever is told, nothing moves
    lblShown_ = Named(new QLabel, "lblShown");
    lblShown_->setMinimumWidth(lblShown_->fontMetrics().horizontalAdvance("Tile AAA1000"));
    const auto turn = [this](const char* name, Qt::ArrowType arrow, const char* words, int step) {
        auto* const button = Named(new QToolButton, name);
        button->setArrowType(arrow);
        button->setAccessibleName(words);
        button->setToolTip(words);
        connect(button, &QToolButton::clicked, this, [this, step] { spnSheet_->setValue(spnSheet_->value() + step); });
        return button;
    };
    cmdPrevious_ = turn("cmdPrevious", Qt::LeftArrow, "Previous sheet", -1);
    cmdNext_ = turn("cmdNext", Qt::RightArrow, "Next sheet", 1);
    picSheet_->Turned = [this](int sheets) { spnSheet_->setValue(spnSheet_->value() + sheets); };
    auto* const pages = new QHBoxLayout;
    for (QWidget* const control : std::initializer_list<QWidget*>{cmdPrevious_, spnSheet_, cmdNext_, lblShown_})
        pages->addWidget(control);
    pages->addStretch();
    auto* const column = new QVBoxLayout;
    column->addWidget(picSheet_, 1);
    column->addLayout(pages);
    column->addWidget(lblSheets_);
    return column;
}

QLayout* frmPrint::Buttons() {
    cmdPrint_ = NewButton("cmdPrint", "&Print…");
    cmdPdf_ = NewButton("cmdPdf", "Save as P&DF…");
    QPushButton* const cmdClose = NewButton("cmdClose", "Close");
    cmdPrint_->setDefault(true);
    cmdPdf_->setToolTip("Write the sheets into a PDF file");
    connect(cmdPrint_, &QPushButton::clicked, this, [this] { Print(); });
    connect(cmdPdf_, &QPushButton::clicked, this, [this] {
        session_.Do([&] {
            const bool written = ExportSheets(
                session_, [&] { return PdfOf(sheets_->Drawing, sheets_->Plan, date_, sheets_->Backdrop.get()); });
            if (written) Remember();
        });
    });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdPrint_, cmdPdf_, cmdClose});
}

SheetOptions frmPrint::Chosen() const {
    SheetOptions options;
    options.Paper = FindPaper(cboPaper_->currentText().toStdString());
    options.Orientation = static_cast<Orientation>(cboOrientation_->currentIndex());
    options.Tiles = optScale_->isChecked();
    options.RoundScale = chkRound_->isChecked();
    if (options.Tiles) options.Scale = spnScale_->value();
    options.Guides = true;
    options.WallTiles = chkWalls_->isChecked();
    return options;
}

void frmPrint::PlanAgain() {
    sheets_.reset();
    const bool hasWalls = parts_->Chosen().Room && !session_.Project.Design.Room.Points.empty();
    chkWalls_->setEnabled(optScale_->isChecked() && hasWalls);
    chkRound_->setEnabled(optFit_->isChecked());
    spnScale_->setEnabled(optScale_->isChecked());
    try {
        CircuitDrawing drawing = DrawingOf(session_.Catalogue, session_.Project, parts_->Chosen());
        auto backdrop = TakeBackdrop(drawing, session_.Pictures);
        SheetPlan plan = PlanSheets(drawing, Chosen());
        sheets_ = {std::move(drawing), std::move(plan), std::move(backdrop)};
        const int count = sheets_->Painter({}).Count();
        spnSheet_->setMaximum(count);
        spnSheet_->setSuffix(QString(" of %1").arg(count));
        lblSheets_->setText(PrintedText(*sheets_, cboPaper_->currentText()));
    } catch (const Fault& fault) {
        lblSheets_->setText(Shown(fault.what()));
    }
    for (QWidget* const control :
         {static_cast<QWidget*>(cmdPrint_), static_cast<QWidget*>(cmdPdf_), static_cast<QWidget*>(spnSheet_)}) {
        if (control != nullptr) control->setEnabled(sheets_.has_value());
    }
    ShowSheet();
}

void frmPrint::ShowSheet() {
    const int sheet = spnSheet_->value();
    picSheet_->ShowSheet(sheet - 1);
    lblShown_->setText(sheets_ ? SheetText(*sheets_, sheet - 1) : QString());
    cmdPrevious_->setEnabled(sheets_ && sheet > 1);
    cmdNext_->setEnabled(sheets_ && sheet < spnSheet_->maximum());
}

bool frmPrint::WantsSheets() const {
    constexpr int many = 20;
    const int count = sheets_->Painter({}).Count();
    if (count <= many) return true;
    const std::string question = PrintedText(*sheets_, cboPaper_->currentText()).toStdString() + ". Print them all?";
    const std::string action = "Print " + std::to_string(count) + " &Sheets";
    return session_.Prompts.AskWhether(question, action) == Answer::Ok;
}

void frmPrint::Print() {
    if (!WantsSheets()) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(Shown(sheets_->Drawing.Name));
    QPrintDialog choose(&printer, this);
    if (choose.exec() != QDialog::Accepted) return;
    bool printed = false;
    session_.Do([&] {
        PrintSheets(*sheets_, date_, printer);
        printed = true;
    });
    if (!printed) return;
    Remember();
    accept();
}

void frmPrint::Remember() {
    session_.Habits.Paper = cboPaper_->currentText().toStdString();
    session_.Habits.PrintContents = parts_->Remembered(*chkWalls_);
    session_.Habits.PrintSize = optScale_->isChecked() ? TilesHabit : chkRound_->isChecked() ? RoundHabit : PageHabit;
    session_.Habits.PrintScale = QString::number(spnScale_->value()).toStdString();
    session_.Habits.PrintOrientation = cboOrientation_->currentText().toStdString();
}

void PrintSheets(const PlannedSheets& sheets, const std::string& date, QPrinter& printer) {
    const SheetPlan& plan = sheets.Plan;
    constexpr double millimetres = 10;
    const double shorter = std::min(plan.Width, plan.Height) * millimetres;
    const double longer = std::max(plan.Width, plan.Height) * millimetres;
    printer.setPageSize(QPageSize(QSizeF(shorter, longer), QPageSize::Millimeter));
    printer.setPageOrientation(plan.Width > plan.Height ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setFullPage(true);
    SheetPainter painted = sheets.Painter(date);
    QPainter painter;
    if (!painter.begin(&printer)) throw Fault("Not printed", "the printer does not take this paper now");
    for (int sheet = 0; sheet < painted.Count(); ++sheet) {
        if (sheet > 0) printer.newPage();
        painted.Paint(painter, printer.resolution(), sheet);
    }
}

} // namespace pistaro
