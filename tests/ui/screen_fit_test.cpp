// Dialogs on small screens.
#include "ui/screen_fit.h"

#include "ui/frmStats.h"
#include "ui/window_fixture.h"

#include <QScrollArea>

namespace pistaro {
namespace {

class ScreenFit : public WindowTest {};

TEST_F(ScreenFit, ADialogThatIsTooLargeScrolls) {
    Open(ProjectOf("C160 C151L"));
    frmStats dialog(*Session);
    const QSize whole = dialog.sizeHint();
    ASSERT_GT(whole.height(), 330);

    FitInto(dialog, {600, 330});
    dialog.show();
    QApplication::processEvents();

    EXPECT_LE(dialog.width(), 600);
    EXPECT_LE(dialog.height(), 330);
    const auto& close = *dialog.findChild<QPushButton*>("cmdClose");
    EXPECT_EQ(close.visibleRegion(), QRegion(close.rect())) << "the buttons stay in sight";
    auto& include = *dialog.findChild<QCheckBox*>("chkInclude");
    EXPECT_EQ(include.visibleRegion(), QRegion()) << "below the edge";
    dialog.findChild<QScrollArea*>()->ensureWidgetVisible(&include);
    EXPECT_EQ(include.visibleRegion(), QRegion(include.rect()));
}

TEST_F(ScreenFit, ADialogThatFitsStaysAsItIs) {
    Open();
    frmStats dialog(*Session);
    const QSize whole = dialog.sizeHint();

    FitInto(dialog, whole);

    EXPECT_EQ(dialog.findChild<QScrollArea*>(), nullptr);
    EXPECT_EQ(dialog.sizeHint(), whole);
}

} // namespace
} // namespace pistaro
