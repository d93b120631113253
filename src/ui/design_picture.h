// A picture of a whole design as large as its place, drawn anew for each size that it gets.
#pragma once

#include "commands/session.h"
#include "ui/work_picture.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace pistaro {

class DesignPicture : public QWidget {
public:
    DesignPicture(Session& session, const char* name, const QString& accessibleName);

    /// Called with the place of the ground that is pressed, and whether with Shift; where it is empty nothing is.
    std::function<void(WorldPoint, bool)> Pressed;

    /// Shows the design, or those words in its place.
    void Show(std::optional<Design> design, const MarkedPieces& marked, const QString& instead);

    int heightForWidth(int width) const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    Session& session_;
    std::optional<Design> design_;
    MarkedPieces marked_;
    QString instead_;
    QImage drawn_;
};

} // namespace pistaro
