// The unsaved work that was found: looked at, opened, copied, deleted. It comes from the menu, and at a start that
// finds some which its user does not know of.
#pragma once

#include "commands/recovery.h"

#include <QDialog>
#include <QListWidget>
#include <QPushButton>

#include <vector>

namespace pistaro {

class frmRecovered : public QDialog {
public:
    /// What the list holds: all that can be opened, or what users are told of at a start and know of from then on.
    enum class Occasion { Menu, Start };

    /// The session must have a Recovery.
    frmRecovered(Session& session, Occasion occasion, QWidget* parent = nullptr);
    ~frmRecovered() override;

private:
    QLayout* Buttons();
    void Fill();
    /// Enables what can be done with the work of that row; below 0 there is none.
    void Enable(int row);
    /// Does something with the chosen work, and shows what is left when it is done.
    void Do(const std::function<void(const RecoveredWork&)>& work);
    void OpenChosen();

    Session& session_;
    const Occasion occasion_;
    std::vector<RecoveredWork> works_;
    QListWidget* const lstWorks_;
    QPushButton* const cmdOpen_;
    QPushButton* const cmdCopy_;
    QPushButton* const cmdDelete_;
};

} // namespace pistaro
