#include "ui/frmBackground.h"

#include "commands/background_commands.h"
#include "ui/named_controls.h"
#include "ui/opacity_field.h"

#include <QFormLayout>

#include <numbers>

namespace pistaro {

namespace {

constexpr double DegreesPerRadian = 180 / std::numbers::pi;

QDoubleSpinBox* NewLengthBox(const char* name, double least, double most, double value) {
    auto* const box = Named(new QDoubleSpinBox, name);
    box->setSuffix(" cm");
    box->setDecimals(1);
    box->setRange(least, most);
    box->setValue(value);
    return box;
}

QLabel* NewHint(const QString& text) {
    auto* const hint = new QLabel(text);
    hint->setWordWrap(true);
    return hint;
}

} // namespace

frmBackground::frmBackground(Session& session, const ScaledBackground& proposed, QWidget* parent)
    : QDialog(parent), session_(session), background_(proposed) {
    setObjectName("frmBackground");
    setWindowTitle("Background to Scale");
    setModal(true);
    const QImage& picture = session.Pictures.Of(proposed.Picture, "background").Image();
    pixels_ = picture.size();
    picBackground_ = Named(new MarkedPicture(picture, [this] { Measure(); }), "picBackground");
    if (const auto& measured = proposed.Measured)
        picBackground_->SetMarks({{measured->FromX, measured->FromY}, {measured->ToX, measured->ToY}});
    auto* const right = new QVBoxLayout;
    right->addWidget(ScaleFrame());
    right->addWidget(PlaceFrame());
    right->addStretch();
    auto* const columns = new QHBoxLayout;
    columns->addWidget(picBackground_, 1);
    columns->addLayout(right);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(Named(NewHint("Lay a floor plan, or a photograph of the table from above, under the track at its "
                                    "true size: click two points of it and enter how far they are apart."),
                            "lblPurpose"));
    layout->addLayout(columns, 1);
    layout->addLayout(Buttons());
    resize(960, 600);
    Measure();
}

QGroupBox* frmBackground::ScaleFrame() {
    constexpr double most = 100000; // cm
    auto* const frame = new QGroupBox("Size");
    constexpr double usual = 100;
    spnDistance_ =
        NewLengthBox("spnDistance", 0.1, most, background_.Measured ? background_.Measured->Distance : usual);
    lblStep_ = Named(NewHint(""), "lblStep");
    constexpr int width = 260; // of the column; what is to be done next must not move what stands below
    lblStep_->setFixedSize(width, 3 * lblStep_->fontMetrics().lineSpacing());
    lblScale_ = Named(NewHint(""), "lblScale");
    auto* const form = new QFormLayout(frame);
    form->addRow(lblStep_);
    form->addRow("&Distance:", spnDistance_);
    form->addRow(lblScale_);
    connect(spnDistance_, &QDoubleSpinBox::valueChanged, this, [this] { Measure(); });
    return frame;
}

QGroupBox* frmBackground::PlaceFrame() {
    auto* const frame = new QGroupBox("Place");
    spnX_ = NewLengthBox("spnX", -FarthestBackground, FarthestBackground, background_.X);
    spnY_ = NewLengthBox("spnY", -FarthestBackground, FarthestBackground, background_.Y);
    spnTurn_ = Named(new QDoubleSpinBox, "spnTurn");
    spnTurn_->setSuffix("°");
    spnTurn_->setDecimals(1);
    spnTurn_->setRange(-360, 360);
    connect(spnTurn_, &QDoubleSpinBox::valueChanged, this,
            [this](double degrees) { picBackground_->SetTurn(degrees / DegreesPerRadian); });
    spnTurn_->setValue(background_.Angle * DegreesPerRadian);
    spnOpacity_ = ForOpacity(Named(new QSpinBox, "spnOpacity"));
    connect(spnOpacity_, &QSpinBox::valueChanged, this,
            [this](int percent) { picBackground_->SetOpacity(OpacityOf(percent)); });
    spnOpacity_->setValue(PercentOf(background_.Opacity));
    picBackground_->SetOpacity(background_.Opacity);
    auto* const form = new QFormLayout(frame);
    form->addRow("Middle &X:", spnX_);
    form->addRow("Middle &Y:", spnY_);
    form->addRow("&Turned clockwise:", spnTurn_);
    form->addRow("O&pacity:", spnOpacity_);
    form->addRow(NewHint("X and Y are room coordinates; the picture turns with the room. View ▸ Move Background "
                         "drags and turns it in the drawing."));
    return frame;
}

QLayout* frmBackground::Buttons() {
    cmdOk_ = NewButton("cmdOk", "OK");
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    cmdOk_->setDefault(true);
    connect(cmdOk_, &QPushButton::clicked, this, [this] {
        const bool done =
            session_.Do([&] { SetBackground(session_, std::make_shared<const ScaledBackground>(Chosen())); });
        if (done) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdOk_, cmdCancel});
}

void frmBackground::TellStep() {
    switch (picBackground_->Marks().size()) {
    case 0:
        lblStep_->setText("Click two points whose distance apart you know, such as the ends of a wall.");
        break;
    case 1:
        lblStep_->setText("Now click the second point.");
        break;
    default:
        lblStep_->setText("A point can be dragged. The wheel zooms, a drag beside the points moves the picture.");
    }
    const bool both = picBackground_->Distance().has_value();
    picBackground_->SetWords(both ? spnDistance_->text() : QString());
}

void frmBackground::Measure() {
    TellStep();
    const auto distance = picBackground_->Distance();
    if (distance && *distance >= 1) background_.CmPerPixel = spnDistance_->value() / *distance;
    const double scale = background_.CmPerPixel;
    const bool known = scale >= LeastCmPerPixel && scale <= MostCmPerPixel;
    if (cmdOk_ != nullptr) cmdOk_->setEnabled(known);
    lblScale_->setText(known ? QString("The whole picture is %1\u00A0×\u00A0%2\u00A0cm.")
                                   .arg(pixels_.width() * scale, 0, 'f', 1)
                                   .arg(pixels_.height() * scale, 0, 'f', 1)
                             : QString("The picture's size is not known yet."));
}

ScaledBackground frmBackground::Chosen() const {
    ScaledBackground chosen = background_;
    chosen.X = spnX_->value();
    chosen.Y = spnY_->value();
    chosen.Angle = spnTurn_->value() / DegreesPerRadian;
    chosen.Opacity = OpacityOf(spnOpacity_->value());
    if (const std::vector<QPointF>& marks = picBackground_->Marks(); marks.size() == 2)
        chosen.Measured = {marks[0].x(), marks[0].y(), marks[1].x(), marks[1].y(), spnDistance_->value()};
    return chosen;
}

} // namespace pistaro
