#include "ui/frmColors.h"

#include "editor/colour_settings.h"
#include "imaging/painter_surface.h"
#include "ui/frmColorSelection.h"
#include "ui/named_controls.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include <functional>

namespace pistaro {

namespace {

/// How the dialog names a slot, in the order of ColourSlots.
struct SlotText {
    const char* Button;
    const char* Caption;
};

constexpr std::array<SlotText, std::size(ColourSlots)> SlotTexts{{
    {"cmdBackground", "&Background:"},
    {"cmdInactive", "Tracks &not being edited:"},
    {"cmdRail", "&Lanes and marks:"},
    {"cmdNonOwned", "Pieces to b&uy:"},
    {"cmdOwned", "&Pieces you own:"},
    {"cmdActive", "Selected pi&ece:"},
}};

/// The preview's own scale: 60 wide and high, y downwards.
constexpr double PreviewSide = 60;

struct PreviewLine {
    double Y;
    Colour ColourScheme::*Slot;
};

constexpr std::array<PreviewLine, 5> PreviewLines{{
    {7, &ColourScheme::Rail},
    {17, &ColourScheme::NonOwned},
    {27, &ColourScheme::Owned},
    {37, &ColourScheme::Inactive},
    {47, &ColourScheme::Active},
}};

class Preview : public QWidget {
public:
    explicit Preview(std::function<ColourScheme()> colours) : colours_(std::move(colours)) { setFixedSize(210, 190); }

protected:
    void paintEvent(QPaintEvent*) override {
        const ColourScheme colours = colours_();
        QPainter painter(this);
        painter.fillRect(rect(), ToQColor(colours.Background));
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.scale(width() / PreviewSide, height() / PreviewSide);
        for (const PreviewLine& line : PreviewLines) {
            QPen pen(ToQColor(colours.*line.Slot), 2);
            pen.setCosmetic(true);
            painter.setPen(pen);
            painter.drawLine(QLineF(5, line.Y, 55, line.Y));
        }
    }

private:
    std::function<ColourScheme()> colours_;
};

} // namespace

frmColors::frmColors(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
    setObjectName("frmColors");
    setWindowTitle("Colours");
    setModal(true);
    picExample_ = Named(new Preview([this] { return Chosen(); }), "picExample");
    auto* const columns = new QHBoxLayout;
    columns->addLayout(Slots());
    columns->addSpacing(16);
    columns->addWidget(picExample_, 0, Qt::AlignTop);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addSpacing(8);
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* frmColors::Slots() {
    auto* const grid = new QGridLayout;
    for (std::size_t slot = 0; slot < buttons_.size(); ++slot) {
        const Colour colour = session_.Project.Preferences.Colours.*ColourSlots[slot].Slot;
        auto* const button = Named(new ColourButton(colour), SlotTexts[slot].Button);
        auto* const label = new QLabel(SlotTexts[slot].Caption);
        label->setBuddy(button);
        connect(button, &QAbstractButton::clicked, this, [this, button] { Choose(*button); });
        grid->addWidget(label, static_cast<int>(slot), 0);
        grid->addWidget(button, static_cast<int>(slot), 1);
        buttons_[slot] = button;
    }
    return grid;
}

QLayout* frmColors::Buttons() {
    QPushButton* const cmdApply = NewButton("cmdApply", "&Apply");
    QPushButton* const cmdSave = NewButton("cmdSave", "&Save");
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    cmdApply->setDefault(true);
    cmdApply->setToolTip("Draw with these colours until the program ends");
    EnableSaving(*cmdSave, !session_.SettingsPath.empty());
    connect(cmdApply, &QPushButton::clicked, this, [this] {
        session_.Do([&] { session_.Project.Preferences.Colours = Chosen(); });
        accept();
    });
    connect(cmdSave, &QPushButton::clicked, this, [this] {
        session_.Do([&] { SaveColours(session_.Catalogue, session_.SettingsPath, Chosen(), session_.Prompts); });
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    return ButtonRow({cmdApply, cmdSave, cmdCancel});
}

void frmColors::Choose(ColourButton& button) {
    Colour colourBeingEdited = button.BackColour();
    frmColorSelection(colourBeingEdited, this).exec();
    button.SetBackColour(colourBeingEdited);
    picExample_->update();
}

ColourScheme frmColors::Chosen() const {
    ColourScheme colours;
    for (std::size_t slot = 0; slot < buttons_.size(); ++slot)
        colours.*ColourSlots[slot].Slot = buttons_[slot]->BackColour();
    return colours;
}

} // namespace pistaro
