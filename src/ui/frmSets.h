// The boxes that a shop sells: name, price and what is in each.
#pragma once

#include "commands/session.h"
#include "model/boxed_set.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

#include <filesystem>

namespace pistaro {

/// Modal. Edits the file of sets beside the settings; without one it begins with an example. Fault when the file that
/// is there cannot be read.
class frmSets : public QDialog {
public:
    explicit frmSets(Session& session, QWidget* parent = nullptr);

private:
    QLayout* SetList();
    QLayout* SetFields();
    QLayout* Buttons();
    void ListSets(int chosen);
    void ShowSet();
    /// Takes what the fields say into the set. What is no number is told, false then, and the field shows the old
    /// again.
    bool KeepSet();
    void Save();

    Session& session_;
    const std::filesystem::path file_;
    BoxedSets sets_;
    int shown_ = -1; ///< the set in the fields
    QListWidget* lstSets_ = nullptr;
    QLineEdit* txtName_ = nullptr;
    QLineEdit* txtPrice_ = nullptr;
    QTreeWidget* lstPieces_ = nullptr;
};

} // namespace pistaro
