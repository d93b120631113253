// The boxes that a shop sells: name, price and what is in each.
#pragma once

#include "commands/session.h"
#include "model/boxed_set.h"
#include "ui/field_table.h"
#include "ui/product_finder.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <filesystem>
#include <map>

namespace pistaro {

/// Modal. Edits the file of sets beside the settings; without one it begins with an example. Fault when the file that
/// is there cannot be read.
class frmSets : public QDialog {
public:
    explicit frmSets(Session& session, QWidget* parent = nullptr);

    /// Esc, Cancel and the window's own button: asks before changes are lost.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLayout* SetList();
    QLayout* SetFields();
    QLayout* PieceList();
    QLayout* Buttons();
    void ListSets(int chosen);
    void ShowSet();
    /// Lists all products, those in the box first.
    void ListPieces(const std::map<int, int>& counts);
    /// Lists the products that are looked for.
    void Find();
    /// Takes what the fields say into a set: what is no number is not taken.
    void TakeFields(BoxedSet& set) const;
    /// The same into the set that is shown. False where a field holds what cannot be kept: it is marked, and told why.
    bool KeepSet();
    bool IsPriceRight();
    /// Marks a field and says beside it why it cannot be kept; with no reason takes that back.
    void ShowFault(QLineEdit& field, const QString& why);
    void PlaceFault();
    void StayWithSet();
    bool IsChanged() const;
    bool HasList() const;
    /// Has the box hold what the list that was typed or pasted names. False where it names what is no piece, which is
    /// told.
    bool FillFromList();
    /// Shows what is in the box apart from what is not, and how much that is.
    void ShowContents();
    BoxedSets WithoutExamples() const;
    void Save();

    Session& session_;
    const std::filesystem::path file_;
    const bool areExamples_; ///< as long as there is no file of the user's own
    const BoxedSets before_;
    BoxedSets sets_;
    int shown_ = -1; ///< the set in the fields
    QListWidget* lstSets_ = nullptr;
    QLineEdit* txtName_ = nullptr;
    QLineEdit* txtPrice_ = nullptr;
    QLineEdit* txtList_ = nullptr;
    QPushButton* cmdFill_ = nullptr;
    ProductFinder* txtFind_ = nullptr;
    FieldTable* lstPieces_ = nullptr;
    QLabel* lblContents_ = nullptr;
    FaultNote* const lblFault_;
    QLineEdit* wrong_ = nullptr; ///< the field that it speaks of, if it does
};

} // namespace pistaro
