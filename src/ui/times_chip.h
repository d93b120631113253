// How many pieces the next press adds, beside the mouse for as long as a digit that was typed is not used.
#pragma once

#include <QLabel>

namespace pistaro {

class TimesChip : public QLabel {
public:
    explicit TimesChip(QWidget& window);

    /// Shows "4 ×"; nothing for once.
    void ShowTimes(int times);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// To the mouse, or as near to it as the window reaches.
    void Follow();
};

} // namespace pistaro
