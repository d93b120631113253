// What is given to controls of all kinds: the core's texts, object names, places in control arrays, Tags.
#pragma once

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <initializer_list>
#include <string>
#include <string_view>

namespace pistaro {

/// The core's UTF-8 as the toolkit shows it.
inline QString Shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The piece or product that the control stands for.
inline std::string TagOf(const QObject& control) { return control.property("Tag").toString().toStdString(); }

template <typename Control>
Control* Named(Control* control, const char* name) {
    control->setObjectName(name);
    return control;
}

/// A member of a control array.
template <typename Control>
Control* Named(Control* control, const char* name, int index) {
    control->setProperty("Index", index);
    return Named(control, name);
}

/// Buttons among which the arrow keys lead to the one that lies there, not to the next in the order of Tab.
inline QButtonGroup* NewKeyField(QWidget* parent) {
    auto* const field = new QButtonGroup(parent);
    field->setExclusive(false);
    return field;
}

/// A push button. In a dialog Enter presses the one that has the focus, else the default one.
inline QPushButton* NewButton(const char* name, const QString& caption) {
    return Named(new QPushButton(caption), name);
}

/// A dialog's buttons, at the right of its lower edge.
inline QHBoxLayout* ButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* const row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* const button : buttons)
        row->addWidget(button);
    return row;
}

/// A box for a number, wide enough for `digits` of them.
inline QLineEdit* NewNumberBox(const char* name, int digits) {
    auto* const box = Named(new QLineEdit, name);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QString(digits, '0')) + 16);
    return box;
}

/// Disables a Save button while there is no settings file to write, and says why.
inline void EnableSaving(QPushButton& button, bool settingsFile) {
    button.setEnabled(settingsFile);
    button.setToolTip(settingsFile ? "Make these the values that Pistaro starts with"
                                   : "The settings file could not be read, so it is left alone");
}

} // namespace pistaro
