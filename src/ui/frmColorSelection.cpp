#include "ui/frmColorSelection.h"

#include "imaging/painter_surface.h"
#include "ui/colour_button.h"
#include "ui/named_controls.h"

#include <QGridLayout>

#include <array>

namespace pistaro {

namespace {

constexpr int Columns = 8;

struct Shade {
    int Saturation, Value;
};

constexpr std::array<int, Columns> Hues{0, 30, 60, 120, 180, 240, 270, 300};
constexpr std::array<Shade, 5> Shades{{{64, 255}, {128, 255}, {255, 255}, {255, 128}, {255, 80}}};
constexpr std::array<int, Columns> Greys{0, 0x40, 0x60, 0x80, 0xA0, 0xC0, 0xE0, 0xFF};

} // namespace

frmColorSelection::frmColorSelection(Colour& colourBeingEdited, QWidget* parent)
    : QDialog(parent), colourBeingEdited_(colourBeingEdited), keyField_(NewKeyField(this)) {
    setObjectName("frmColorSelection");
    setWindowTitle("Choose a Colour");
    setModal(true);
    auto* const grid = new QGridLayout(this);
    grid->setSpacing(2);
    int index = 0;
    for (const Shade& shade : Shades) {
        for (const int hue : Hues)
            AddColour(index++, FromQColor(QColor::fromHsv(hue, shade.Saturation, shade.Value)));
    }
    for (const int grey : Greys)
        AddColour(index++, Rgb(grey, grey, grey));
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    grid->setRowMinimumHeight(grid->rowCount(), 8);
    grid->addWidget(cmdCancel, grid->rowCount(), 0, 1, Columns, Qt::AlignRight);
    grid->setSizeConstraint(QLayout::SetFixedSize);
}

void frmColorSelection::AddColour(int index, Colour colour) {
    auto* const cmdCol = Named(new ColourButton(colour), "cmdCol", index);
    cmdCol->setFixedSize(40, 32);
    cmdCol->setAccessibleName(ToQColor(colour).name().toUpper());
    keyField_->addButton(cmdCol);
    connect(cmdCol, &QAbstractButton::clicked, this, [this, colour] {
        colourBeingEdited_ = colour;
        accept();
    });
    static_cast<QGridLayout*>(layout())->addWidget(cmdCol, index / Columns, index % Columns);
    if (colour == colourBeingEdited_) cmdCol->setFocus();
}

} // namespace pistaro
