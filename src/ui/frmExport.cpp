#include "ui/frmExport.h"

#include "ui/named_controls.h"

#include <QFormLayout>
#include <QLabel>

namespace pistaro {

namespace {

constexpr std::array Formats{ExportFormat::Png, ExportFormat::Svg, ExportFormat::Pdf,
                             ExportFormat::Dxf, ExportFormat::Csv, ExportFormat::Json};

/// How the size of a drawing is chosen.
enum class Size { OnPaper, ToScale, ScaleOnPaper, Tiles, Width };

struct SizeText {
    Size Value;
    const char* Caption;
};

constexpr SizeText SizeTexts[] = {{Size::OnPaper, "As large as the paper takes it"},
                                  {Size::ToScale, "To scale, on a sheet of its own size"},
                                  {Size::ScaleOnPaper, "To scale, on one sheet of the paper"},
                                  {Size::Tiles, "To scale, in tiles of the paper"},
                                  {Size::Width, "So many pixels wide"}};

bool Offers(ExportFormat format, Size size) {
    if (size == Size::Tiles) return format == ExportFormat::Pdf;
    if (size == Size::Width) return format == ExportFormat::Png;
    return format == ExportFormat::Png || format == ExportFormat::Svg || format == ExportFormat::Pdf;
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
    cboFormat_ = Named(new QComboBox, "cboFormat");
    for (const ExportFormat format : Formats)
        cboFormat_->addItem(CaptionOf(format), static_cast<int>(format));
    auto* const form = new QFormLayout;
    form->addRow("&Format:", cboFormat_);
    parts_ = new DrawnPartsBox([] {});
    auto* const columns = new QHBoxLayout;
    columns->addWidget(SizeFrame());
    columns->addWidget(parts_);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(cboFormat_, &QComboBox::currentIndexChanged, this, [this] { FollowFormat(); });
    FollowFormat();
}

QGroupBox* frmExport::SizeFrame() {
    fraSize_ = new QGroupBox("Size");
    auto* const form = new QFormLayout(fraSize_);
    cboSize_ = Named(new QComboBox, "cboSize");
    cboSize_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    cboPaper_ = NewPaperList();
    spnScale_ = Named(new QDoubleSpinBox, "spnScale");
    spnScale_->setPrefix("1:");
    spnScale_->setDecimals(1);
    spnScale_->setRange(0.1, 1000);
    spnScale_->setValue(10);
    spnDots_ = Named(new QSpinBox, "spnDots");
    spnDots_->setRange(10, 2400);
    spnDots_->setValue(300);
    spnWidth_ = Named(new QSpinBox, "spnWidth");
    spnWidth_->setRange(16, 30000);
    spnWidth_->setValue(1600);
    form->addRow("&Size:", cboSize_);
    form->addRow("&Paper:", cboPaper_);
    form->addRow("S&cale:", spnScale_);
    form->addRow("&Dots per inch:", spnDots_);
    form->addRow("&Width in pixels:", spnWidth_);
    connect(cboSize_, &QComboBox::currentIndexChanged, this, [this] {
        const Size size = SizeOf<Size>(*cboSize_);
        cboPaper_->setEnabled(size == Size::OnPaper || size == Size::ScaleOnPaper || size == Size::Tiles);
        spnScale_->setEnabled(size == Size::ToScale || size == Size::ScaleOnPaper || size == Size::Tiles);
        spnWidth_->setEnabled(size == Size::Width);
        spnDots_->setEnabled(Format() == ExportFormat::Png && size != Size::Width);
    });
    return fraSize_;
}

QLayout* frmExport::Buttons() {
    QPushButton* const cmdExport = NewButton("cmdExport", "&Export…");
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    cmdExport->setDefault(true);
    connect(cmdExport, &QPushButton::clicked, this, [this] {
        bool written = false;
        session_.Do([&] { written = ExportCommand(session_, Format(), Chosen()); });
        if (written) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdExport);
    row->addWidget(cmdCancel);
    return row;
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
    options.DotsPerInch = spnDots_->value();
    if (size == Size::Width) options.PixelWidth = spnWidth_->value();
    return options;
}

void frmExport::FollowFormat() {
    const ExportFormat format = Format();
    cboSize_->clear();
    for (const SizeText& size : SizeTexts) {
        if (Offers(format, size.Value)) cboSize_->addItem(size.Caption, static_cast<int>(size.Value));
    }
    fraSize_->setEnabled(cboSize_->count() > 0);
    parts_->EnableDrawing(format != ExportFormat::Csv && format != ExportFormat::Json, Offers(format, Size::OnPaper));
}

} // namespace pistaro
