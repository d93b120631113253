// The circuits that come with the program, with their pictures: one is chosen and opened.
#pragma once

#include "commands/session.h"

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace pistaro {

class frmSamples : public QDialog {
public:
    /// Shows the circuits of a folder.
    frmSamples(Session& session, const std::filesystem::path& folder, QWidget* parent = nullptr);

private:
    void Add(const std::filesystem::path& sample);
    void OpenChosen();

    Session& session_;
    std::vector<std::filesystem::path> samples_; ///< line by line
    QLabel* const lblExplain_;
    QListWidget* const lstSamples_;
    QPushButton* const cmdOpen_;
};

} // namespace pistaro
