// The export dialog with a circuit of two tracks, and its formats by their places in the list.
#pragma once

#include "dialog_fixture.h"
#include "support/chain.h"
#include "ui/frmExport.h"

#include <QPlainTextEdit>

namespace pistaro {

class FrmExport : public DialogTest<frmExport> {
protected:
    FrmExport() {
        project_.Design = ProjectOf("C160 C151L", "C157").Design;
        Open();
    }

    void Choose(const char* list, int index) const { Find<QComboBox>(list).setCurrentIndex(index); }
    bool IsShown(const char* name) const { return Find<QWidget>(name).isVisible(); }
    bool IsEnabled(const char* name) const { return Find<QWidget>(name).isEnabled(); }

    /// Presses Export, with this file as the one that the user chooses.
    std::string Exported(const char* name) {
        prompts_.Files.push_back(folder_ / name);
        Press("cmdExport");
        return BytesOf(folder_ / name);
    }

    enum Sizes { PngWidth, PngPaper, PngScale }; ///< by their places for that format
    enum Formats { Png, Svg, Pdf, Dxf, Csv, ShoppingList, Json };
};

} // namespace pistaro
