// Window, grid and units on the left, the room with its picture on the right. The fields are the dialog's data; the
// controls show them and are read into them.
#include "ui/frmDrawArea.h"

#include "imaging/painter_surface.h"
#include "render/redraw.h"
#include "ui/key_scroll_bar.h"
#include "ui/named_controls.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QRadioButton>

namespace pistaro {

namespace {

constexpr int NumberDigits = 10;

/// The room as it stands, drawn as in the circuit's picture, with a ring around the point that is shown.
class RoomPicture : public QWidget {
public:
    RoomPicture(const ColourScheme& colours, const DrawAreaFields& fields) : colours_(colours), fields_(fields) {
        setFixedSize(300, 300);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const RoomPolygon room = RoomIn(fields_);
        QPainter painter(this);
        PainterSurface surface(painter, TargetSize::Square(width()));
        surface.Clear(colours_.Background);
        const ViewRectangle shown = RoomRectangle(room);
        surface.SetScale(shown);
        DrawRoom(room, surface);
        if (ShowsPoint(fields_.Room)) {
            const RoomPoint& point = room.Points[static_cast<std::size_t>(fields_.Room.Number - 1)];
            const double ring = (double{shown.ViewRight} - shown.ViewLeft) / 50;
            surface.Draw(Ellipse{RoomCorner(room, point), ring, 1}, colours_.Active);
        }
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    const ColourScheme& colours_;
    const DrawAreaFields& fields_;
};

/// Radio buttons that are a control array.
QButtonGroup* NewOptions(QLayout& row, const char* name, std::initializer_list<const char*> captions, QWidget* parent) {
    auto* const group = new QButtonGroup(parent);
    int index = 0;
    for (const char* caption : captions) {
        auto* const option = Named(new QRadioButton(caption), name, index);
        group->addButton(option, index++);
        row.addWidget(option);
    }
    return group;
}

} // namespace

frmDrawArea::frmDrawArea(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), fields_(OpenDrawArea(session.Project.Design, session.Project.Preferences)) {
    setObjectName("frmDrawArea");
    setWindowTitle("Draw Area Settings");
    setModal(true);
    auto* const left = new QVBoxLayout;
    left->addWidget(WindowFrame());
    left->addWidget(GridFrame());
    left->addWidget(UnitsFrame());
    left->addStretch();
    auto* const columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addWidget(RoomFrame());
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowFields();
    boxes_.front().Control->selectAll(); // as Tab does: what is typed first replaces the value
}

QLineEdit* frmDrawArea::NewBox(const char* name, std::string DrawAreaFields::*field) {
    QLineEdit* const box = NewNumberBox(name, NumberDigits);
    boxes_.push_back({box, field});
    connect(box, &QLineEdit::textChanged, this, [this] { ReadFields(); });
    return box;
}

QGroupBox* frmDrawArea::WindowFrame() {
    auto* const frame = new QGroupBox("Window");
    auto* const form = new QFormLayout(frame);
    form->addRow("Centre &X (cm):", NewBox("txtCentreX", &DrawAreaFields::CentreX));
    form->addRow("Centre &Y (cm):", NewBox("txtCentreY", &DrawAreaFields::CentreY));
    form->addRow("&Window (cm):", NewBox("txtZoomVal", &DrawAreaFields::ZoomVal));
    form->addRow("&Max Width (cm):", NewBox("txtMaxWidth", &DrawAreaFields::MaxWidth));
    lblArea_ = Named(new QLabel, "lblArea");
    form->addRow(lblArea_);
    return frame;
}

QGroupBox* frmDrawArea::GridFrame() {
    auto* const frame = new QGroupBox("Grid");
    auto* const form = new QFormLayout(frame);
    auto* const options = new QHBoxLayout;
    optGrid_ = NewOptions(*options, "optGrid", {"&None", "&Lines", "D&ots"}, this);
    form->addRow(options);
    form->addRow("S&tep:", NewBox("txtStep", &DrawAreaFields::Step));
    return frame;
}

QGroupBox* frmDrawArea::UnitsFrame() {
    auto* const frame = new QGroupBox("Units");
    auto* const form = new QFormLayout(frame);
    auto* const options = new QHBoxLayout;
    optUnits_ = NewOptions(*options, "optUnits", {"&cm", "&in"}, this);
    options->addStretch();
    form->addRow(options);
    QLineEdit* const txtCurrency = NewBox("txtCurrency", &DrawAreaFields::Currency);
    txtCurrency->setAlignment(Qt::AlignLeft);
    form->addRow("C&urrency:", txtCurrency);
    for (QButtonGroup* const group : {optGrid_, optUnits_})
        connect(group, &QButtonGroup::idToggled, this, [this] { ReadFields(); });
    return frame;
}

QGroupBox* frmDrawArea::RoomFrame() {
    auto* const frame = new QGroupBox("Room Definition");
    auto* const row = new QHBoxLayout(frame);
    picRoom_ = Named(new RoomPicture(session_.Project.Preferences.Colours, fields_), "picRoom");
    row->addLayout(PointFields());
    row->addSpacing(8);
    row->addWidget(picRoom_, 0, Qt::AlignTop);
    return frame;
}

QLayout* frmDrawArea::PointFields() {
    lblPNo_ = Named(new QLabel, "lblPNo");
    hscPnt_ = Named(new KeyScrollBar(Qt::Horizontal), "hscPnt");
    hscPnt_->setPageStep(1);
    hscPnt_->setAccessibleName("Point");
    txtX_ = NewNumberBox("txtX", NumberDigits);
    txtY_ = NewNumberBox("txtY", NumberDigits);
    chkLine_ = Named(new QCheckBox("Lin&e"), "chkLine");
    chkLine_->setToolTip("Draw a line to this point from the one before");
    cmdAdd_ = NewButton("cmdAdd", "A&dd");
    cmdDelete_ = NewButton("cmdDelete", "Delete");
    for (QLineEdit* const box : {txtX_, txtY_})
        connect(box, &QLineEdit::textChanged, this, [this] { ReadFields(); });
    connect(chkLine_, &QCheckBox::toggled, this, [this] { ReadFields(); });
    connect(hscPnt_, &QScrollBar::valueChanged, this, [this](int number) {
        if (showing_) return;
        ScrollToPoint(fields_.Room, number);
        ShowPoint();
    });
    connect(cmdAdd_, &QPushButton::clicked, this, [this] { AddRoomPoint(); });
    connect(cmdDelete_, &QPushButton::clicked, this, [this] { DeleteRoomPoint(); });

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(cmdAdd_);
    buttons->addWidget(cmdDelete_);
    auto* const form = new QFormLayout;
    form->addRow("Point:", lblPNo_);
    form->addRow(hscPnt_);
    form->addRow("X (cm):", txtX_);
    form->addRow("Y (cm):", txtY_);
    form->addRow("", chkLine_);
    form->addRow(buttons);
    form->addRow("An&gle (degrees):", NewBox("txtRoomAngle", &DrawAreaFields::RoomAngle));
    return form;
}

QLayout* frmDrawArea::Buttons() {
    QPushButton* const cmdHelp = NewButton("cmdHelp", "&Help");
    QPushButton* const cmdApply = NewButton("cmdApply", "&Apply");
    QPushButton* const cmdSave = NewButton("cmdSave", "&Save");
    QPushButton* const cmdCancel = NewButton("cmdCancel", "Cancel");
    cmdApply->setDefault(true);
    cmdApply->setToolTip("Take these values for the circuit, which is saved with them");
    EnableSaving(*cmdSave, !session_.SettingsPath.empty());
    connect(cmdHelp, &QPushButton::clicked, this, [this] { ExplainDrawArea(session_.Prompts); });
    connect(cmdApply, &QPushButton::clicked, this,
            [this] { Put([&] { return ApplyDrawArea(session_.Project, fields_, session_.Prompts); }); });
    connect(cmdSave, &QPushButton::clicked, this, [this] {
        Put([&] {
            return SaveDrawArea(session_.Catalogue, session_.Project, session_.SettingsPath, fields_, session_.Prompts);
        });
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    QHBoxLayout* const row = ButtonRow({cmdApply, cmdSave, cmdCancel});
    row->insertWidget(0, cmdHelp);
    return row;
}

void frmDrawArea::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && (txtX_->hasFocus() || txtY_->hasFocus())) return AddRoomPoint();
    QDialog::keyPressEvent(event);
}

void frmDrawArea::ShowFields() {
    showing_ = true;
    for (const Box& box : boxes_)
        box.Control->setText(Shown(fields_.*box.Field));
    if (QAbstractButton* const grid = optGrid_->button(fields_.Grid)) grid->setChecked(true);
    optUnits_->button(fields_.Inches ? 1 : 0)->setChecked(true);
    showing_ = false;
    ShowPoint();
}

void frmDrawArea::ShowPoint() {
    const RoomPoints& room = fields_.Room;
    showing_ = true;
    hscPnt_->setRange(1, LastPlace(room));
    hscPnt_->setValue(room.Number);
    lblPNo_->setNum(room.Number);
    txtX_->setText(Shown(room.Entry.X));
    txtY_->setText(Shown(room.Entry.Y));
    chkLine_->setChecked(room.Entry.Line);
    cmdDelete_->setEnabled(ShowsPoint(room));
    cmdDelete_->setToolTip(ShowsPoint(room) ? "Take this point out; the later ones move down"
                                            : "There is no point of this number yet");
    showing_ = false;
    ShowPictures();
}

void frmDrawArea::ShowPictures() {
    lblArea_->setText(Shown(DrawAreaLabel(fields_)));
    picRoom_->update();
}

void frmDrawArea::ReadFields() {
    if (showing_) return;
    for (const Box& box : boxes_)
        fields_.*box.Field = box.Control->text().toStdString();
    if (optGrid_->checkedId() >= 0) fields_.Grid = optGrid_->checkedId();
    fields_.Inches = optUnits_->checkedId() == 1;
    fields_.Room.Entry = {txtX_->text().toStdString(), txtY_->text().toStdString(), chkLine_->isChecked()};
    ShowPictures();
}

void frmDrawArea::AddRoomPoint() {
    const std::size_t before = fields_.Room.Points.size();
    if (!session_.Do([&] { AddPoint(fields_.Room, session_.Prompts); })) return;
    ShowPoint();
    if (fields_.Room.Points.size() > before) txtX_->setFocus();
}

void frmDrawArea::DeleteRoomPoint() {
    DeletePoint(fields_.Room);
    ShowPoint();
}

void frmDrawArea::Put(const std::function<bool()>& put) {
    bool done = false;
    session_.Do([&] {
        session_.NameStep("Draw Area");
        done = put();
    });
    ShowFields();
    if (done) accept();
}

} // namespace pistaro
