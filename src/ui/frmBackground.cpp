#include "ui/frmBackground.h"

#include "commands/background_commands.h"
#include "ui/named_controls.h"

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
    auto* const right = new QVBoxLayout;
    right->addWidget(ScaleFrame());
    right->addWidget(PlaceFrame());
    right->addStretch();
    auto* const columns = new QHBoxLayout;
    columns->addWidget(picBackground_, 1);
    columns->addLayout(right);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(Buttons());
    resize(900, 560);
    Measure();
}

QGroupBox* frmBackground::ScaleFrame() {
    constexpr double most = 100000; // cm
    auto* const frame = new QGroupBox("Size");
    spnDistance_ = NewLengthBox("spnDistance", 0.1, most, 100);
    lblScale_ = Named(NewHint(""), "lblScale");
    auto* const form = new QFormLayout(frame);
    form->addRow(NewHint("Click two points whose distance apart you know, such as the ends of a wall. The "
                         "wheel zooms, a drag moves the picture."));
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
    spnTurn_->setValue(background_.Angle * DegreesPerRadian);
    auto* const form = new QFormLayout(frame);
    form->addRow("Middle &X:", spnX_);
    form->addRow("Middle &Y:", spnY_);
    form->addRow("&Turned clockwise:", spnTurn_);
    form->addRow(NewHint("X and Y are room coordinates; the picture turns with the room."));
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

void frmBackground::Measure() {
    const auto distance = picBackground_->Distance();
    if (distance && *distance >= 1) background_.CmPerPixel = spnDistance_->value() / *distance;
    const double scale = background_.CmPerPixel;
    const bool known = scale >= LeastCmPerPixel && scale <= MostCmPerPixel;
    if (cmdOk_ != nullptr) cmdOk_->setEnabled(known);
    lblScale_->setText(known ? QString("The whole picture is %1 × %2 cm.")
                                   .arg(pixels_.width() * scale, 0, 'f', 1)
                                   .arg(pixels_.height() * scale, 0, 'f', 1)
                             : QString("The picture's size is not known yet."));
}

ScaledBackground frmBackground::Chosen() const {
    ScaledBackground chosen = background_;
    chosen.X = spnX_->value();
    chosen.Y = spnY_->value();
    chosen.Angle = spnTurn_->value() / DegreesPerRadian;
    return chosen;
}

} // namespace pistaro
