// The window with panels beside the drawing, and the lists in them.
#pragma once

#include "support/temporary_folder.h"
#include "ui/window_fixture.h"

#include <QApplication>
#include <QLocale>
#include <QTreeWidget>

namespace pistaro {

class Panels : public WindowTest {
protected:
    Panels() { QLocale::setDefault(QLocale::c()); }

    void OpenWithSettings(pistaro::Project project) {
        settings_ = folder_ / "corvel.ini";
        WriteBytes(settings_, InitialSettingsBytes(Pieces()));
        Open(std::move(project), settings_);
    }

    void ShowPanel(const char* entry) {
        Entry(entry).trigger();
        QApplication::processEvents();
        QTest::qWait(1);
    }

    QTreeWidget& Tree(const char* name) { return Find<QTreeWidget>(name); }

    /// The texts of a list's lines in one column.
    std::vector<std::string> Column(const char* name, int column) {
        std::vector<std::string> texts;
        for (int line = 0; line < Tree(name).topLevelItemCount(); ++line)
            texts.push_back(Tree(name).topLevelItem(line)->text(column).toStdString());
        return texts;
    }

    TemporaryFolder folder_;
    std::filesystem::path settings_;
};

} // namespace pistaro
