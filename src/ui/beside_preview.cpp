#include "ui/beside_preview.h"

namespace pistaro {

void LayOutBesidePreview(QDialog& dialog, QLayout* choices, QLayout* preview, QLayout* buttons) {
    constexpr QSize usual(980, 690); // within a small screen's room
    auto* const columns = new QHBoxLayout;
    columns->addLayout(choices);
    columns->addLayout(preview, 1);
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addLayout(columns, 1);
    layout->addLayout(buttons);
    dialog.setSizeGripEnabled(true);
    dialog.resize(usual);
}

} // namespace pistaro
