#include "ui/line_icon.h"

#include "ui/painted_icon.h"

#include <QApplication>

#include <array>

namespace pistaro {

namespace {

/// In which the build draws them, pixels.
constexpr std::array<int, 6> Sides{20, 25, 30, 40, 50, 60};

/// The smallest drawing that need not be enlarged.
QImage DrawingFor(const QString& name, int side) {
    int best = Sides.back();
    for (auto drawn = Sides.rbegin(); drawn != Sides.rend() && *drawn >= side; ++drawn)
        best = *drawn;
    return QImage(":/buttons/" + name + "-" + QString::number(best) + ".png");
}

class LineIconEngine : public PaintedIcon<LineIconEngine> {
public:
    explicit LineIconEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const double ratio = painter->device()->devicePixelRatioF();
        const QSize pixels = (QSizeF(rect.size()) * ratio).toSize();
        QImage drawing = DrawingFor(name_, pixels.width()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        {
            QPainter ink(&drawing);
            ink.setCompositionMode(QPainter::CompositionMode_SourceIn);
            ink.fillRect(drawing.rect(), QApplication::palette().color(GroupOf(mode), QPalette::ButtonText));
        }
        painter->save();
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(rect, drawing);
        painter->restore();
    }

private:
    QString name_;
};

} // namespace

QIcon LineIcon(const char* name) { return QIcon(new LineIconEngine(name)); }

void ShowIcon(QToolButton& button, const char* name, Qt::ToolButtonStyle style) {
    button.setIcon(LineIcon(name));
    button.setIconSize(QSize(LineIconSide, LineIconSide));
    button.setToolButtonStyle(style);
}

} // namespace pistaro
