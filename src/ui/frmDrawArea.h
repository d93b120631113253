// The draw-area dialog: view, grid, units, currency and the room's outline.
#pragma once

#include "commands/session.h"
#include "editor/draw_area.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include <functional>
#include <vector>

class QGroupBox;

namespace pistaro {

/// Modal. Apply and Save close it when the fields are valid.
class frmDrawArea : public QDialog {
public:
    explicit frmDrawArea(Session& session, QWidget* parent = nullptr);

protected:
    /// Enter in a coordinate of the room adds the point, rather than close the dialog.
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A text box and the field that it shows.
    struct Box {
        QLineEdit* Control;
        std::string DrawAreaFields::*Field;
    };

    QLineEdit* NewBox(const char* name, std::string DrawAreaFields::*field);
    QGroupBox* WindowFrame();
    QGroupBox* GridFrame();
    QGroupBox* UnitsFrame();
    QGroupBox* RoomFrame();
    QLayout* PointFields();
    QLayout* Buttons();

    void ShowFields();
    void ShowPoint();
    void ShowPictures();
    void ReadFields();
    void AddRoomPoint();
    void DeleteRoomPoint();
    void Put(const std::function<bool()>& put);

    Session& session_;
    DrawAreaFields fields_;
    bool showing_ = false; ///< the controls are being filled: their changes are none of the user's
    std::vector<Box> boxes_;
    QButtonGroup* optGrid_ = nullptr;
    QButtonGroup* optUnits_ = nullptr;
    QLabel* lblArea_ = nullptr;
    QLabel* lblPNo_ = nullptr;
    QScrollBar* hscPnt_ = nullptr;
    QLineEdit* txtX_ = nullptr;
    QLineEdit* txtY_ = nullptr;
    QCheckBox* chkLine_ = nullptr;
    QPushButton* cmdAdd_ = nullptr;
    QPushButton* cmdDelete_ = nullptr;
    QWidget* picRoom_ = nullptr;
};

} // namespace pistaro
