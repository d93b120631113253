#include "ui/frmAbout.h"

#include "catalogue/track_geometry.h"
#include "imaging/painter_surface.h"
#include "layout/placement.h"
#include "render/redraw.h"
#include "ui/named_controls.h"
#include "version.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace pistaro {

namespace {

constexpr int SplashMilliseconds = 1500;
constexpr int DrawingSide = 240; ///< pixels

constexpr Colour DrawingBackground = Rgb(0x24, 0x29, 0x2f);
constexpr Colour DrawingRail = Rgb(0xd8, 0xdc, 0xe0);
constexpr Colour DrawingOutline = Rgb(0xf2, 0xa9, 0x3b);

/// A figure of eight with its bridge.
Track ShownTrack() {
    Track track;
    track.TrackStartX = 46.5F;
    track.TrackStartY = -15.5F;
    track.TrackStartHeading = static_cast<float>(PiValue / 2);
    track.ElementCodes = {"C160", "C160", "C159", "C158", "C151L", "C151L", "C151L", "C159", "C151L", "C151L", "C151L",
                          "C160", "C248", "C159", "C158", "C151R", "C151R", "C151R", "C160", "C151R", "C151R", "C151R"};
    return track;
}

/// The square around it, with a margin.
constexpr ViewRectangle ShownSquare{-105, 105, 105, -105};

QImage Drawing(const Catalogue& catalogue, double pixelRatio) {
    QImage image((QSizeF(DrawingSide, DrawingSide) * pixelRatio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    QPainter painter(&image);
    PainterSurface surface(painter, TargetSize::Square(DrawingSide));
    surface.Clear(DrawingBackground);
    surface.SetScale(ShownSquare);
    WalkTrack(catalogue, ShownTrack(), [&](int, const PiecePlacement* placement, const BuildCursor&) {
        DrawPiece(*placement, DrawingOutline, DrawingRail, surface);
    });
    return image;
}

QLabel* Words(const char* name, const QString& text, const char* style,
              QPalette::ColorRole colour = QPalette::WindowText) {
    auto* const label = Named(new QLabel(text), name);
    label->setStyleSheet(style);
    label->setForegroundRole(colour);
    label->setWordWrap(true);
    return label;
}

QString VersionText() { return QString("version %1.%2.%3").arg(VersionMajor).arg(VersionMinor).arg(VersionRevision); }

} // namespace

frmAbout::frmAbout(const Catalogue& catalogue, QWidget* owner, bool aboutFromMenu)
    : QDialog(owner), catalogue_(catalogue), aboutFromMenu_(aboutFromMenu) {
    setObjectName("frmAbout");
    setWindowTitle("About Pistaro");
    setAttribute(Qt::WA_DeleteOnClose);

    auto* const words = new QVBoxLayout;
    words->setContentsMargins(24, 24, 24, 20);
    words->addWidget(Words("lblTitle", "PISTARO", "font-size: 30px; font-weight: bold; letter-spacing: 3px;"));
    words->addWidget(Words("lblWhat", "A layout designer\nfor slot-car racing track", "font-size: 14px;"));
    words->addSpacing(10);
    words->addWidget(Words("lblVersion", VersionText(), "font-size: 13px;", QPalette::PlaceholderText));
    words->addStretch();
    words->addWidget(Words("lblNotice",
                           "Scalextric and Ninco are trade marks of their owners, who have no part in this program.",
                           "font-size: 11px;", QPalette::PlaceholderText));
    QPushButton* const cmdOK = NewButton("cmdOK", "OK");
    if (!aboutFromMenu) cmdOK->hide();
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    words->addSpacing(12);
    words->addWidget(cmdOK, 0, Qt::AlignRight);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addSpacing(DrawingSide);
    row->addLayout(words);
    setFixedSize(DrawingSide + 340, DrawingSide);
}

frmAbout::frmAbout(const Catalogue& catalogue, QWidget* owner) : frmAbout(catalogue, owner, true) {}

frmAbout::frmAbout(const Catalogue& catalogue, const std::function<void()>& showMainWindow)
    : frmAbout(catalogue, nullptr, false) {
    setWindowTitle("Pistaro");
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    auto* const timTimer = Named(new QTimer(this), "timTimer");
    timTimer->setInterval(SplashMilliseconds);
    timTimer->setSingleShot(true);
    connect(timTimer, &QTimer::timeout, this, [this, showMainWindow] {
        showMainWindow();
        accept();
    });
    timTimer->start();
}

void frmAbout::reject() {
    if (aboutFromMenu_) QDialog::reject();
}

void frmAbout::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.drawImage(QPointF(0, 0), Drawing(catalogue_, devicePixelRatioF()));
    if (aboutFromMenu_) return;
    painter.setPen(ToQColor(DrawingBackground)); // a frame for a window that has none
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace pistaro
