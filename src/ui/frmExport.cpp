#include "ui/frmExport.h"

#include "imaging/sheet_picture.h"
#include "platform/fault.h"
#include "ui/choice_list.h"
#include "ui/named_controls.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QFormLayout>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <cmath>

namespace pistaro {

namespace {

constexpr std::array Formats{ExportFormat::Png, ExportFormat::Svg, ExportFormat::Pdf,
                             ExportFormat::Dxf, ExportFormat::Csv, ExportFormat::Json};

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

bool IsTable(ExportFormat format) { return format == ExportFormat::Csv || format == ExportFormat::Json; }

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

/// As much of a file as a preview shows: whole lines, or a part of a line that is longer than that.
QString FirstLines(const QString& text) {
    constexpr qsizetype most = 4000; // characters
    if (text.size() <= most) return text;
    const qsizetype end = text.lastIndexOf('\n', most - 1) + 1;
    return text.left(end > 0 ? end : most) + "…";
}

/// A line of a table with its lengths and angles to three digits: what is smaller comes of computing.
QString RoundedLine(const QString& line) {
    constexpr int firstNumber = 4; // of the columns
    QStringList fields = line.split(',');
    for (qsizetype field = firstNumber; field < fields.size(); ++field) {
        bool isNumber = false;
        const double value = fields[field].toDouble(&isNumber);
        if (isNumber) fields[field] = QString::number(std::round(value * 1000) / 1000 + 0.0, 'g', 10);
    }
    return fields.join(',');
}

QString Rounded(const QString& table) {
    QStringList lines = QString(table).remove('\r').split('\n');
    for (QString& line : lines)
        line = RoundedLine(line);
    return lines.join('\n');
}

/// Entries of an open list with a second column, paler: what each is for.
class PurposeBeside : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int Gap = 16; ///< pixels

    static int Width(const QComboBox& list) {
        int widest = 0;
        for (int row = 0; row < list.count(); ++row)
            widest = std::max(widest, list.fontMetrics().horizontalAdvance(Purpose(list.model()->index(row, 0))));
        return CaptionsWidth(*list.model(), list.fontMetrics()) + widest + 3 * Gap;
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const bool chosen = option.state & QStyle::State_Selected;
        painter->setPen(option.palette.color(chosen ? QPalette::HighlightedText : QPalette::PlaceholderText));
        const QRect place = option.rect.adjusted(CaptionsWidth(*index.model(), option.fontMetrics) + Gap, 0, 0, 0);
        painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft, Purpose(index));
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int air = 6; // pixels
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, air);
    }

private:
    static QString Purpose(const QModelIndex& index) { return index.data(Qt::UserRole + 1).toString(); }

    static int CaptionsWidth(const QAbstractItemModel& model, const QFontMetrics& metrics) {
        int widest = 0;
        for (int row = 0; row < model.rowCount(); ++row)
            widest = std::max(widest, metrics.horizontalAdvance(model.index(row, 0).data().toString()));
        return widest;
    }
};

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
    for (const ExportFormat format : Formats) {
        cboFormat_->addItem(CaptionOf(format), static_cast<int>(format));
        cboFormat_->setItemData(cboFormat_->count() - 1, PurposeOf(format), Qt::UserRole + 1);
    }
    cboFormat_->setItemDelegate(new PurposeBeside(cboFormat_));
    cboFormat_->view()->setMinimumWidth(PurposeBeside::Width(*cboFormat_));
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
    if (const auto last = ExportFormatOf("x" + habits.ExportEnding)) {
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
    fraSize_ = new QGroupBox("Size");
    auto* const form = new QFormLayout(fraSize_);
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
    form->addRow("&Size:", cboSize_);
    form->addRow("&Paper:", cboPaper_);
    form->addRow("S&cale:", spnScale_);
    form->addRow("&Resolution:", spnDots_);
    form->addRow("&Width:", spnWidth_);
    chkWalls_ = NewWallsBox(session_.Habits.ExportContents);
    form->addRow(chkWalls_);
    connect(chkWalls_, &QCheckBox::toggled, this, [this] { PlanAgain(); });
    for (QSpinBox* const box : {spnDots_, spnWidth_})
        connect(box, &QSpinBox::valueChanged, this, [this] { PlanAgain(); });
    connect(spnScale_, &QDoubleSpinBox::valueChanged, this, [this] { PlanAgain(); });
    connect(cboPaper_, &QComboBox::currentIndexChanged, this, [this] { PlanAgain(); });
    connect(cboSize_, &QComboBox::currentIndexChanged, this, [this] { FollowSize(); });
    return fraSize_;
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
    cboSize_->setPlaceholderText(IsTable(format) ? "No drawing" : "At its full size");
    fraSize_->setEnabled(cboSize_->count() > 0);
    lblPurpose_->setText(PurposeOf(format));
    parts_->EnableDrawing(!IsTable(format), Offers(format, Size::OnPaper));
    FollowSize();
}

void frmExport::FollowSize() {
    const Size size = SizeOf<Size>(*cboSize_);
    cboPaper_->setEnabled(size == Size::OnPaper || size == Size::ScaleOnPaper || size == Size::Tiles);
    spnScale_->setEnabled(size == Size::ToScale || size == Size::ScaleOnPaper || size == Size::Tiles);
    spnWidth_->setEnabled(size == Size::Width);
    spnDots_->setEnabled(Format() == ExportFormat::Png && size != Size::Width);
    PlanAgain();
}

void frmExport::PlanAgain() {
    sheets_.reset();
    const ExportOptions chosen = Chosen();
    chkWalls_->setEnabled(chosen.Sheets.Tiles && chosen.Parts.Room && !session_.Project.Design.Room.Points.empty());
    bool can = false;
    const bool isText = IsTable(Format());
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
    const bool isTable = Format() == ExportFormat::Csv;
    txtLines_->setLineWrapMode(isTable ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
    txtLines_->setWordWrapMode(QTextOption::WrapAnywhere);
    const QString text = FirstLines(Shown(ExportBytes(session_.Catalogue, session_.Project, Format(), Chosen())));
    txtLines_->setPlainText(isTable ? Rounded(text) : text);
    txtLines_->setToolTip(isTable ? "Rounded to three digits here; the file has all of them" : "");
}

QString frmExport::PlannedText() {
    const ExportOptions options = Chosen();
    CircuitDrawing drawing = DrawingOf(session_.Catalogue, session_.Project, options.Parts);
    if (IsTable(Format())) return QString("A table of %1 pieces; no drawing.").arg(drawing.Pieces.size());
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
    habits.ExportEnding = EndingOf(Format());
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
