#include "ui/frmExport.h"

#include "imaging/sheet_picture.h"
#include "platform/fault.h"
#include "stats/detail.h"
#include "text/count_text.h"
#include "ui/choice_list.h"
#include "ui/named_controls.h"
#include "ui/preview_lines.h"
#include "ui/purpose_beside.h"

#include <QFontDatabase>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <cmath>

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

constexpr SizeChoice SizeChoices[] = {{Size::OnPaper, "As large as fits on the paper", "paper"},
                                      {Size::ToScale, "To scale, on a sheet of its own size", "scale"},
                                      {Size::ScaleOnPaper, "To scale, on one sheet of the paper", "sheet"},
                                      {Size::Tiles, "To scale, in tiles of the paper", "tiles"},
                                      {Size::Width, "At a width in pixels", "width"}};

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

QString TableText(const CircuitDrawing& drawing) {
    return QString("A table of %1 pieces, a line each: code, name, where it lies. Counts and prices are in another "
                   "format: Shopping list (CSV).")
        .arg(drawing.Pieces.size());
}

QString ShoppingText(const Detail& detail) {
    int count = 0;
    for (const CountLabel& label : detail.Labels)
        count += label.Count;
    if (count == 0) return "Nothing is to be bought: you own all of these pieces.";
    return Shown(CountText(count, "piece")) +
           " to buy, beyond those that you own. Settings ▸ Loose Track takes what you own, and prices.";
}

/// "21 × 29.7 cm"
QString LengthsText(double width, double height, const Units& units) {
    const auto rounded = [&](double length) { return std::round(length / units.UnitFactor() * 10) / 10; };
    return QString("%1 × %2 %3").arg(rounded(width)).arg(rounded(height)).arg(units.Name());
}

/// "1 sheet at 1:5.4, 21 × 29.7 cm", "15.5 × 35 cm at full size".
QString SizeText(const PlannedSheets& sheets, ExportFormat format, const ExportOptions& options) {
    const SheetPlan& plan = sheets.Plan;
    const Units& units = sheets.Drawing.Preferences.Units;
    const QString size = LengthsText(plan.Width, plan.Height, units);
    if (format == ExportFormat::Dxf) {
        const Box& extent = sheets.Drawing.Extent;
        return LengthsText(extent.Width(), extent.Height(), units) + " at full size";
    }
    if (format == ExportFormat::Pdf) return SheetsText(sheets) + ", " + size + (plan.Tiled ? " each" : "");
    QString atScale = size + " at " + Shown(plan.ScaleText());
    if (format == ExportFormat::Svg) return atScale;
    const PixelSize pixels = SheetPixels(plan, DotsPerInchOf(plan, options));
    return QString("%1 × %2 pixels, %3").arg(pixels.Width).arg(pixels.Height).arg(atScale);
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
    auto* const columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addLayout(PreviewColumn());
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    BeginAsLastTime();
}

QGroupBox* frmExport::FormatFrame() {
    auto* const frame = new QGroupBox("Format");
    auto* const form = new QFormLayout(frame);
    cboFormat_ = Named(new ChoiceList, "cboFormat");
    for (const ExportFormat format : Formats)
        PurposeBeside::Add(*cboFormat_, CaptionOf(format), static_cast<int>(format), PurposeOf(format));
    new PurposeBeside(*cboFormat_); // which is the list's
    lblPurpose_ = Named(new QLabel, "lblPurpose");
    lblPurpose_->setForegroundRole(QPalette::PlaceholderText);
    form->addRow("&Format:", cboFormat_);
    form->addRow(lblPurpose_);
    connect(cboFormat_, &QComboBox::currentIndexChanged, this, [this] { FollowFormat(); });
    return frame;
}

void frmExport::BeginAsLastTime() {
    const Habits& habits = session_.Habits;
    if (const double scale = Shown(habits.ExportScale).toDouble(); scale > 0) spnScale_->setValue(scale);
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
    sizeRows_ = new QFormLayout(frame);
    cboSize_ = Named(new ChoiceList, "cboSize");
    cboSize_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (const SizeChoice& size : SizeChoices)
        cboSize_->addItem(size.Caption);
    cboSize_->setMinimumWidth(cboSize_->sizeHint().width()); // the window keeps its own whatever is offered
    cboPaper_ = NewPaperList(session_.Habits.Paper);
    spnScale_ = Named(new QDoubleSpinBox, "spnScale");
    spnScale_->setPrefix("1:");
    spnScale_->setDecimals(1);
    spnScale_->setRange(0.1, 1000);
    spnScale_->setValue(10);
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
    frame->setMinimumSize(frame->sizeHint()); // no size takes more rows; the window keeps its own
    sizeRows_->addRow("&Width:", spnWidth_);
    sizeRows_->addRow(chkWalls_);
    sizeRows_->addRow(lblNoSize_);
    connect(chkWalls_, &QCheckBox::toggled, this, [this] { PlanAgain(); });
    for (QSpinBox* const box : {spnDots_, spnWidth_})
        connect(box, &QSpinBox::valueChanged, this, [this] { PlanAgain(); });
    connect(spnScale_, &QDoubleSpinBox::valueChanged, this, [this] { PlanAgain(); });
    connect(cboPaper_, &QComboBox::currentIndexChanged, this, [this] { PlanAgain(); });
    connect(cboSize_, &QComboBox::currentIndexChanged, this, [this] { FollowSize(); });
    return frame;
}

QLayout* frmExport::PreviewColumn() {
    picSheet_ = Named(new SheetPreview(sheets_, {}, {360, 360}), "picSheet");
    picSheet_->setAccessibleName("Preview of the file");
    lblPlanned_ = Named(new QLabel, "lblPlanned");
    lblPlanned_->setWordWrap(true);
    lblPlanned_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblPlanned_->setFixedSize(picSheet_->width(), 3 * lblPlanned_->fontMetrics().lineSpacing());
    txtLines_ = Named(new QPlainTextEdit, "txtLines");
    txtLines_->setAccessibleName("The file's first lines");
    txtLines_->setReadOnly(true);
    txtLines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtLines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtLines_->setFixedSize(picSheet_->size());
    txtLines_->hide();
    auto* const column = new QVBoxLayout;
    column->addWidget(picSheet_);
    column->addWidget(txtLines_);
    column->addWidget(lblPlanned_);
    column->addStretch();
    return column;
}

QLayout* frmExport::Buttons() {
    cmdExport_ = NewButton("cmdExport", "&Export…");
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    cmdExport_->setDefault(true);
    connect(cmdExport_, &QPushButton::clicked, this, [this] { Export(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdExport_, cmdCancel});
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
    ShowRow(lblNoSize_, cboSize_->count() == 0);
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
    QWidget* const views[] = {picSheet_, txtLines_};
    views[isText ? 0 : 1]->hide(); // before the other one comes, or the window would grow for a moment
    views[isText ? 1 : 0]->show();
    txtLines_->clear();
    try {
        lblPlanned_->setText(PlannedText());
        if (isText) ShowLines();
        can = true;
    } catch (const Fault& fault) {
        lblPlanned_->setText(Shown(fault.what()));
    }
    cmdExport_->setEnabled(can);
    picSheet_->ShowSheet(0);
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
    if (!written) return;
    Remember();
    accept();
}

void frmExport::Remember() {
    Habits& habits = session_.Habits;
    habits.ExportEnding = Format() == ExportFormat::ShoppingList ? ShoppingHabit : EndingOf(Format());
    habits.Paper = cboPaper_->currentText().toStdString();
    habits.ExportContents = parts_->Remembered(*chkWalls_);
    habits.ExportScale = QString::number(spnScale_->value()).toStdString();
    habits.ExportWidth = QString::number(spnWidth_->value()).toStdString();
    habits.ExportDots = QString::number(spnDots_->value()).toStdString();
    for (const SizeChoice& size : SizeChoices) {
        if (cboSize_->currentIndex() >= 0 && size.Value == SizeOf<Size>(*cboSize_)) habits.ExportSize = size.Habit;
    }
}

} // namespace pistaro
