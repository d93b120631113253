// What stands above the circuits: what was found, and, in a colour of its own, that it was for another box or room.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <functional>

namespace pistaro {

class FoundBanner : public QFrame {
public:
    /// `searchAgain` is called by the button beside what is outdated.
    explicit FoundBanner(std::function<void()> searchAgain);

    /// Whether it can be searched again is told by `canSearch`.
    void Show(const QString& text, bool isOutdated, bool canSearch);

private:
    QLabel* const lblFound_;
    QPushButton* const cmdSearchAgain_;
};

} // namespace pistaro
