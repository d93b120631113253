#include "ui/frmExport.h"

#include "platform/fault.h"
#include "stats/detail.h"
#include "ui/beside_preview.h"
#include "ui/choice_list.h"
#include "ui/export_texts.h"
#include "ui/named_controls.h"
#include "ui/preview_lines.h"
#include "ui/purpose_beside.h"
#include "ui/scale_box.h"

#include <QFontDatabase>
#include <QSignalBlocker>

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr std::array Formats{ExportFormat::Png, ExportFormat::Svg,          ExportFormat::Pdf, ExportFormat::Dxf,
                             ExportFormat::Csv, ExportFormat::ShoppingList, ExportFormat::Json};

/// As it is remembered; others are by their endings.
constexpr const char* ShoppingHabit = "-shopping.csv";

std::optional<ExportFormat> FormatOfHabit(const std::string& habit) {
    return habit == ShoppingHabit ? ExportFormat::ShoppingList : ExportFormatOf("x" + habit);
}

/// How the size of a drawing is chosen.
enum class Size { OnPaper, ToScale, ScaleOnPaper, Tiles, Width };

struct SizeChoice {
    Size Value;
    const char* Caption;
    const char* Habit; ///< as it is remembered
};

constexpr SizeChoice SizeChoices[] = {{Size::Width, "At a width in pixels", "width"},
                                      {Size::OnPaper, "As large as fits on the paper", "paper"},
                                      {Size::ToScale, "To scale, on a sheet of its own size", "scale"},
                                      {Size::ScaleOnPaper, "To scale, on one sheet of the paper", "sheet"},
                                      {Size::Tiles, "To scale, in tiles of the paper", "tiles"}};

bool Offers(ExportFormat format, Size size) {
    if (size == Size::Tiles) return format == ExportFormat::Pdf;
    if (size == Size::Width) return format == ExportFormat::Png;
    return format == ExportFormat::Png || format == ExportFormat::Svg || format == ExportFormat::Pdf;
}

bool IsText(ExportFormat format) {
    return format == ExportFormat::Csv || format == ExportFormat::ShoppingList || format == ExportFormat::Json;
}

/// Why no size can be chosen; empty where one can.
const char* WhyNoSize(ExportFormat format) {
    if (IsText(format)) return "This file holds text and no drawing, so it has no size.";
    return format == ExportFormat::Dxf ? "A construction is always at full size, in centimetres." : "";
}

template <typename Value>
Value SizeOf(const QComboBox& list) {
    return static_cast<Value>(list.currentData().toInt());
}

} // namespace

frmExport::frmExport(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setObjectName("frmExport");
    setWindowTitle("Export");
    setModal(true);
    const DrawnParts inTheWindow{.Numbers = session.Project.EditState.ShowNumbers,
                                 .Room = true,
                                 .Surface = session.Looks.Surface,
                                 .StockColours = false};
    parts_ = new DrawnPartsBox(session.Project, PartsIn(session.Habits.ExportContents, inTheWindow),
                               [this] { PlanAgain(); });
    auto* const left = new QVBoxLayout;
    left->addWidget(FormatFrame());
    left->addWidget(SizeFrame());
    left->addWidget(parts_);
    left->addStretch();
    LayOutBesidePreview(*this, left, PreviewColumn(), Buttons());
    BeginAsLastTime();
    connect(this, &QDialog::finished, this, [this] { Remember(); });
}

QGroupBox* frmExport::FormatFrame() {
    auto* const frame = new QGroupBox("Format");
    auto* const form = new QFormLayout(frame);
    cboFormat_ = Named(new ChoiceList, "cboFormat");
    for (const ExportFormat format : Formats)
        PurposeBeside::Add(*cboFormat_, CaptionOf(format), static_cast<int>(format), PurposeOf(format));
    new PurposeBeside(*cboFormat_); // which is the list's
    lblPurpose_ = Named(new QLabel, "lblPurpose");
    for (const ExportFormat format : Formats) // the window keeps its own width whatever is told
        lblPurpose_->setMinimumWidth(
            std::max(lblPurpose_->minimumWidth(), lblPurpose_->fontMetrics().horizontalAdvance(PurposeOf(format))));
    form->addRow("&Format:", cboFormat_);
    form->addRow(lblPurpose_);
    connect(cboFormat_, &QComboBox::currentIndexChanged, this, [this] { FollowFormat(); });
    return frame;
}

void frmExport::BeginAsLastTime() {
    const Habits& habits = session_.Habits;
    if (const double scale = Shown(habits.ExportScale).toDouble(); scale > 0) firstScale_ = scale;
    spnScale_->setValue(firstScale_);
    hasChosenScale_ = false;
    if (const int width = Shown(habits.ExportWidth).toInt(); width > 0) spnWidth_->setValue(width);
    if (const int dots = Shown(habits.ExportDots).toInt(); dots > 0) spnDots_->setValue(dots);
    if (const auto last = FormatOfHabit(habits.ExportEnding)) {
        const QSignalBlocker followedBelow(cboFormat_);
        cboFormat_->setCurrentIndex(cboFormat_->findData(static_cast<int>(*last)));
    }
    FollowFormat();
    for (const SizeChoice& size : SizeChoices) {
        const int place = cboSize_->findData(static_cast<int>(size.Value));
        if (size.Habit == habits.ExportSize && place >= 0) cboSize_->setCurrentIndex(place);
    }
}

QGroupBox* frmExport::SizeFrame() {
    auto* const frame = new QGroupBox("Size");
    sizeRows_ = new QFormLayout;
    cboSize_ = Named(new ChoiceList, "cboSize");
    cboSize_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (const SizeChoice& size : SizeChoices)
        cboSize_->addItem(size.Caption);
    cboSize_->setMinimumWidth(cboSize_->sizeHint().width()); // the window keeps its own whatever is offered
    cboPaper_ = NewPaperList(session_.Habits.Paper);
    spnScale_ = Named(new ScaleBox(0.1, 1000, firstScale_), "spnScale");
    spnDots_ = Named(new QSpinBox, "spnDots");
    spnDots_->setRange(10, 2400);
    spnDots_->setValue(300);
    spnDots_->setSuffix(" dots per inch");
    spnWidth_ = Named(new QSpinBox, "spnWidth");
    spnWidth_->setRange(16, 30000);
    spnWidth_->setValue(1600);
    spnWidth_->setSuffix(" pixels");
    chkWalls_ = NewWallsBox(session_.Habits.ExportContents);
    lblNoSize_ = Named(new QLabel, "lblNoSize");
    lblNoSize_->setWordWrap(true);
    sizeRows_->addRow("&Size:", cboSize_);
    sizeRows_->addRow("&Paper:", cboPaper_);
    sizeRows_->addRow("S&cale:", spnScale_);
    sizeRows_->addRow("&Resolution:", spnDots_);
    // No words that wrap stand among rows that are hidden: the toolkit's form writes beyond its own rows then.
    auto* const column = new QVBoxLayout(frame);
    column->addLayout(sizeRows_);
    column->addWidget(lblNoSize_);
    frame->setMinimumSize(frame->sizeHint()); // no size takes more rows; the window keeps its own
    sizeRows_->addRow("&Width:", spnWidth_);
    sizeRows_->addRow(chkWalls_);
    connect(chkWalls_, &QCheckBox::toggled, this, [this] { PlanAgain(); });
    for (QSpinBox* const box : {spnDots_, spnWidth_})
        connect(box, &QSpinBox::valueChanged, this, [this] { PlanAgain(); });
    connect(spnScale_, &QDoubleSpinBox::valueChanged, this, [this] {
        hasChosenScale_ = true;
        PlanAgain();
    });
    connect(cboPaper_, &QComboBox::currentIndexChanged, this, [this] { PlanAgain(); });
    connect(cboSize_, &QComboBox::currentIndexChanged, this, [this] { FollowSize(); });
    return frame;
}

QLayout* frmExport::PreviewColumn() {
    picSheet_ = Named(new SheetPreview(sheets_, {}), "picSheet");
    picSheet_->setAccessibleName("Preview of the file");
    lblPlanned_ = Named(new QLabel, "lblPlanned");
    lblPlanned_->setWordWrap(true);
    lblPlanned_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblPlanned_->setMinimumHeight(3 * lblPlanned_->fontMetrics().lineSpacing()); // whatever is told, nothing moves
    cmdPossible_ = NewButton("cmdPossible", "Take");                             // what, it says once it is shown
    cmdPossible_->setAutoDefault(false);
    QSizePolicy keepsItsPlace = cmdPossible_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    cmdPossible_->setSizePolicy(keepsItsPlace);
    connect(cmdPossible_, &QPushButton::clicked, this, [this] { TakePossible(); });
    txtLines_ = Named(new QPlainTextEdit, "txtLines");
    txtLines_->setAccessibleName("The file's first lines");
    txtLines_->setReadOnly(true);
    txtLines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtLines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    views_ = new QStackedWidget;
    views_->addWidget(picSheet_);
    views_->addWidget(txtLines_);
    auto* const told = new QHBoxLayout;
    told->addWidget(lblPlanned_, 1);
    told->addWidget(cmdPossible_, 0, Qt::AlignTop);
    auto* const column = new QVBoxLayout;
    column->addWidget(views_, 1);
    column->addLayout(told);
    return column;
}

QLayout* frmExport::Buttons() {
    cmdExport_ = NewButton("cmdExport", "&Export…");
    QPushButton* const cmdClose = NewButton("cmdClose", "Close");
    cmdExport_->setDefault(true);
    connect(cmdExport_, &QPushButton::clicked, this, [this] { Export(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdExport_, cmdClose});
}

ExportFormat frmExport::Format() const { return SizeOf<ExportFormat>(*cboFormat_); }

ExportOptions frmExport::Chosen() const {
    ExportOptions options;
    options.Parts = parts_->Chosen();
    if (cboSize_->count() == 0) return options;
    const Size size = SizeOf<Size>(*cboSize_);
    if (cboPaper_->isEnabled()) options.Sheets.Paper = FindPaper(cboPaper_->currentText().toStdString());
    if (spnScale_->isEnabled()) options.Sheets.Scale = spnScale_->value();
    options.Sheets.Tiles = size == Size::Tiles;
    options.Sheets.WallTiles = chkWalls_->isChecked();
    options.DotsPerInch = spnDots_->value();
    if (size == Size::Width) options.PixelWidth = spnWidth_->value();
    return options;
}

void frmExport::FollowFormat() {
    const ExportFormat format = Format();
    {
        const QSignalBlocker manyChanges(cboSize_);
        cboSize_->clear();
        for (const SizeChoice& size : SizeChoices) {
            if (Offers(format, size.Value)) cboSize_->addItem(size.Caption, static_cast<int>(size.Value));
        }
        if (cboSize_->count() > 0) cboSize_->setCurrentIndex(0); // a list with a placeholder chooses nothing itself
    }
    ShowRow(cboSize_, cboSize_->count() > 0);
    lblNoSize_->setText(WhyNoSize(format));
    lblNoSize_->setVisible(cboSize_->count() == 0);
    lblPurpose_->setText(PurposeOf(format));
    parts_->EnableDrawing(!IsText(format), Offers(format, Size::OnPaper));
    FollowSize();
}

void frmExport::FollowSize() {
    const bool hasSize = cboSize_->count() > 0;
    const Size size = SizeOf<Size>(*cboSize_);
    const auto isOneOf = [&](std::initializer_list<Size> sizes) {
        return hasSize && std::ranges::find(sizes, size) != sizes.end();
    };
    ShowRow(cboPaper_, isOneOf({Size::OnPaper, Size::ScaleOnPaper, Size::Tiles}));
    ShowRow(spnScale_, isOneOf({Size::ToScale, Size::ScaleOnPaper, Size::Tiles}));
    ShowRow(spnWidth_, isOneOf({Size::Width}));
    ShowRow(spnDots_, Format() == ExportFormat::Png && !isOneOf({Size::Width}));
    ShowRow(chkWalls_, isOneOf({Size::Tiles}));
    if (!hasChosenScale_) BeginWithAScale();
    PlanAgain();
}

void frmExport::ShowRow(QWidget* field, bool shown) {
    sizeRows_->setRowVisible(field, shown);
    field->setEnabled(shown);
}

void frmExport::PlanAgain() {
    sheets_.reset();
    const ExportOptions chosen = Chosen();
    chkWalls_->setEnabled(chosen.Sheets.Tiles && chosen.Parts.Room && !session_.Project.Design.Room.Points.empty());
    bool can = false;
    const bool isText = IsText(Format());
    views_->setCurrentIndex(isText ? 1 : 0);
    txtLines_->clear();
    possible_.reset();
    try {
        lblPlanned_->setText(PlannedText());
        if (isText) ShowLines();
        can = true;
    } catch (const Fault& fault) {
        lblPlanned_->setText(Shown(fault.what()));
        if (!isText) OfferPossible();
    }
    cmdPossible_->setVisible(possible_.has_value());
    cmdExport_->setEnabled(can);
    picSheet_->ShowSheet(0);
}

void frmExport::OfferPossible() try {
    const ExportOptions chosen = Chosen();
    CircuitDrawing drawing = DrawingOf(session_.Catalogue, session_.Project, chosen.Parts);
    const auto backdrop = TakeBackdrop(drawing, session_.Pictures);
    possible_ = PossibleExport(drawing, Format(), chosen);
    if (!possible_) return;
    const QString value = possible_->Sheets.Scale ? "1:" + spnScale_->textFromValue(*possible_->Sheets.Scale)
                          : possible_->PixelWidth ? QString("%1 pixels").arg(*possible_->PixelWidth)
                                                  : QString("%1 dots per inch").arg(possible_->DotsPerInch);
    cmdPossible_->setText("Take " + value);
    cmdPossible_->setToolTip(possible_->Sheets.Scale ? "The next round scale that works" : "The largest that works");
} catch (const Fault&) {
    possible_.reset(); // what cannot be drawn at all is told already
}

void frmExport::TakePossible() {
    const ExportOptions taken = *possible_;
    if (taken.Sheets.Scale)
        spnScale_->setValue(*taken.Sheets.Scale);
    else if (taken.PixelWidth)
        spnWidth_->setValue(*taken.PixelWidth);
    else
        spnDots_->setValue(static_cast<int>(taken.DotsPerInch));
    cmdExport_->setFocus();
}

void frmExport::BeginWithAScale() {
    if (!spnScale_->isEnabled()) return;
    const QSignalBlocker plannedBelow(spnScale_);
    spnScale_->setValue(firstScale_);
    OfferPossible();
    if (possible_) spnScale_->setValue(*possible_->Sheets.Scale);
}

void frmExport::ShowLines() {
    const std::string bytes = ExportBytes(session_.Catalogue, session_.Project, Format(), Chosen());
    txtLines_->setPlainText(PreviewLines(bytes, Format()));
    const bool isRounded = Format() == ExportFormat::Csv;
    const bool isIndented = Format() == ExportFormat::Json;
    txtLines_->setToolTip(isRounded    ? "Rounded to three digits here; the file has all of them"
                          : isIndented ? "Indented here; the file is one line"
                                       : "");
}

QString frmExport::PlannedText() {
    const ExportOptions options = Chosen();
    CircuitDrawing drawing = DrawingOf(session_.Catalogue, session_.Project, options.Parts);
    if (Format() == ExportFormat::Csv) return TableText(drawing);
    if (Format() == ExportFormat::Json) return QString("%1 pieces; no drawing.").arg(drawing.Pieces.size());
    if (Format() == ExportFormat::ShoppingList)
        return ShoppingText(ShowDetail(session_.Catalogue, session_.Project.Stock, session_.Project.Design.Circuit,
                                       options.Parts.Track, false));
    auto backdrop = TakeBackdrop(drawing, session_.Pictures);
    SheetPlan plan = PlanExport(drawing, Format(), options);
    sheets_ = {std::move(drawing), std::move(plan), std::move(backdrop)};
    return SizeText(*sheets_, Format(), options);
}

void frmExport::ChangeFormat(ExportFormat format) {
    const QVariant size = cboSize_->currentData();
    cboFormat_->setCurrentIndex(cboFormat_->findData(static_cast<int>(format)));
    if (const int place = cboSize_->findData(size); place >= 0) cboSize_->setCurrentIndex(place);
}

void frmExport::Export() {
    bool written = false;
    session_.Do([&] {
        const auto file = ChooseExportFile(session_, Format());
        if (!file) return;
        if (file->Format != Format()) ChangeFormat(file->Format);
        WriteExport(session_, *file, ExportBytes(session_.Catalogue, session_.Project, file->Format, Chosen()));
        written = true;
    });
    if (written) Remember();
}

void frmExport::Remember() {
    Habits& habits = session_.Habits;
    habits.ExportEnding = Format() == ExportFormat::ShoppingList ? ShoppingHabit : EndingOf(Format());
    habits.Paper = cboPaper_->currentText().toStdString();
    habits.ExportContents = parts_->Remembered(*chkWalls_);
    if (hasChosenScale_) habits.ExportScale = QString::number(spnScale_->value()).toStdString();
    habits.ExportWidth = QString::number(spnWidth_->value()).toStdString();
    habits.ExportDots = QString::number(spnDots_->value()).toStdString();
    for (const SizeChoice& size : SizeChoices) {
        if (cboSize_->currentIndex() >= 0 && size.Value == SizeOf<Size>(*cboSize_)) habits.ExportSize = size.Habit;
    }
}

} // namespace pistaro
