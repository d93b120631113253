// A column at the window's side, as wide as its content needs; it scrolls where the window is too low for all of it.
#pragma once

#include <QScrollArea>

namespace pistaro {

class SideColumn : public QScrollArea {
public:
    explicit SideColumn(QWidget* content);

protected:
    bool event(QEvent* event) override;

private:
    /// With room for the scroll bar only while there is one.
    void FitWidth();
};

} // namespace pistaro
