#include "app/frmSplash.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QtMath>
#include <utility>

#include "app/Captions.h"
#include "app/StartSettings.h"
#include "app/UpdateCheck.h"

namespace ornivane {

namespace {

constexpr int ShownMilliseconds = 2000;
constexpr QSize SplashSize(600, 340);

// The compass rose behind the name: a tick each ten degrees, longer each thirty.
void DrawRose(QPainter& painter, QPointF centre, double radius) {
    painter.setPen(QPen(QColor(255, 255, 255, 60), 2));
    painter.drawEllipse(centre, radius, radius);
    for (int degrees = 0; degrees < 360; degrees += 10) {
        const double angle = qDegreesToRadians(static_cast<double>(degrees));
        const double inner = radius - (degrees % 30 == 0 ? 22 : 12);
        const QPointF direction(std::sin(angle), -std::cos(angle));
        painter.drawLine(centre + direction * inner, centre + direction * radius);
    }
}

// A light aeroplane seen from above, nose up, about 1 unit from nose to tail.
QPainterPath Aeroplane() {
    QPainterPath path;
    path.moveTo(0, -0.50);
    path.cubicTo(0.06, -0.48, 0.06, -0.30, 0.06, -0.22);
    path.lineTo(0.55, -0.16);
    path.lineTo(0.55, -0.02);
    path.lineTo(0.06, 0.00);
    path.lineTo(0.03, 0.34);
    path.lineTo(0.20, 0.39);
    path.lineTo(0.20, 0.47);
    path.lineTo(0, 0.45);
    const QPainterPath right = path;
    path.closeSubpath();
    return path.united(QTransform::fromScale(-1, 1).map(path));
}

void DrawAeroplane(QPainter& painter, QPointF centre, double length) {
    painter.save();
    painter.translate(centre);
    painter.rotate(38);
    painter.scale(length, length);
    const QColor yellow(0xFF, 0xC8, 0x3C);
    painter.setPen(QPen(yellow, 0.01)); // closes the seam between the halves
    painter.setBrush(yellow);
    painter.drawPath(Aeroplane());
    painter.restore();
}

QFont SizedFont(const QFont& base, int pixels, bool bold) {
    QFont font = base;
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

// The splash has its own colours, by day and by night.
void StyleLabel(QLabel& label, const char* name, const QRect& place, const char* style) {
    label.setObjectName(name);
    label.setGeometry(place);
    label.setStyleSheet(QString("background: transparent; ") + style);
}

} // namespace

frmSplash::frmSplash(Variablen& shared, Web& updateServer)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), variablen(shared), web(updateServer) {
    setObjectName("frmSplash");
    setFixedSize(SplashSize);
    setWindowTitle(ProgramName);
    StyleLabel(lblVersion, "lblVersion", {40, 216, 300, 28}, "color: #d6e4f0; font-size: 18px");
    StyleLabel(lblUpdate, "lblUpdate", {40, 252, 300, 32},
               "color: #ffc83c; font-size: 20px; font-weight: bold");
    if (const QScreen* where = screen()) move(where->availableGeometry().center() - rect().center());
    Timer1.setObjectName("Timer1");
    Timer1.setSingleShot(true);
    connect(&Timer1, &QTimer::timeout, this, &frmSplash::End);
    Timer1.start(ShownMilliseconds);
    ReadStartSettings(variablen);
    setToolTip(variablen.Text("Klicken zum Fortfahren", "Click to continue"));
    lblUpdate.setText(captions::Update.In(variablen));
    lblUpdate.hide();
    lblVersion.setText("Version " + QString::fromStdString(ProgramVersion()));
}

void frmSplash::CheckForUpdate() {
    if (check != Check::Due) return;
    check = Check::Running;
    variablen.UpdateAvailable = UpdateOffered(web, ProgramVersion());
    lblUpdate.setVisible(variablen.UpdateAvailable);
    ReadQnh(variablen);
    check = Check::Done;
    if (endAsked) End();
}

// The main window needs all that the splash finds out. So whoever ends it while the server is being asked,
// the timer or the user, waits for the answer.
void frmSplash::End() {
    if (check != Check::Done) {
        endAsked = true;
        CheckForUpdate();
        return;
    }
    Timer1.stop();
    if (ended) std::exchange(ended, nullptr)();
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor(0x0B, 0x1E, 0x3A));
    sky.setColorAt(1, QColor(0x2A, 0x62, 0x8F));
    painter.fillRect(rect(), sky);
    DrawRose(painter, QPointF(450, 170), 128);
    DrawAeroplane(painter, QPointF(450, 170), 150);

    painter.setPen(Qt::white);
    painter.setFont(SizedFont(font(), 52, true));
    painter.drawText(QRect(38, 72, 320, 60), Qt::AlignLeft | Qt::AlignVCenter, "Ornivane");
    painter.setFont(SizedFont(font(), 52, false));
    painter.drawText(QRect(38, 132, 320, 60), Qt::AlignLeft | Qt::AlignVCenter, "GPS");

    // Asking the server stops everything else for a moment: only once there is something to look at.
    if (check == Check::Due) QTimer::singleShot(0, this, &frmSplash::CheckForUpdate);
}

void frmSplash::mousePressEvent(QMouseEvent*) { End(); }

void frmSplash::keyPressEvent(QKeyEvent*) { End(); }

} // namespace ornivane
