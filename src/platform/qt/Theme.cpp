#include "platform/qt/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

// The icons lie in a static library, where nothing registers them by itself. Not inside a namespace: the
// macro declares a function of the global one.
static void RegisterIcons() { Q_INIT_RESOURCE(icons); }

namespace ornivane {

namespace {

struct Colours {
    const char *Window, *Base, *Text, *Faint, *Button, *Border, *Lit, *LitText, *Focus, *Notice, *NoticeText,
        *Icons;
};

constexpr Colours Day{"#e9ecef", "#ffffff", "#101418", "#4a5560", "#fbfcfd", "#8a96a3",
                      "#0b5fa5", "#ffffff", "#d9480f", "#ffe08a", "#2b1d00", "day"};
constexpr Colours Night{"#0b0d10", "#14181d", "#d8c9a8", "#8f8467", "#1a1f25", "#4d5560",
                        "#c98a1b", "#0b0d10", "#e0b050", "#5a2a00", "#ffd9a0", "night"};

constexpr const char* Sheet = R"(
QWidget { font-size: 15px; }
QToolTip { color: %TEXT; background: %BASE; border: 1px solid %BORDER; padding: 3px; }
QToolButton, QPushButton { min-height: 40px; padding: 0 10px; background: %BUTTON; color: %TEXT; border: 2px solid %BORDER; border-radius: 6px; }
QToolButton:checked, QPushButton:checked { background: %LIT; color: %LITTEXT; border: 3px solid %LIT; font-weight: bold; }
QToolButton:disabled, QPushButton:disabled { color: %BORDER; border-style: dashed; }
QToolButton:focus, QPushButton:focus, QComboBox:focus, QTableView:focus, QSlider:focus, QLabel:focus { border: 2px solid %FOCUS; }
QToolButton::menu-indicator { width: 0; }
QComboBox { min-height: 34px; padding: 0 8px; background: %BUTTON; color: %TEXT; border: 2px solid %BORDER; border-radius: 6px; }
QComboBox::drop-down { width: 32px; border: none; }
QComboBox::down-arrow { width: 16px; height: 16px; image: url(:/icons/down-%ICONS.svg); }
QComboBox:disabled { color: %BORDER; border-style: dashed; }
QComboBox QAbstractItemView::item { min-height: 40px; }
QTableView { background: %BASE; color: %TEXT; gridline-color: %BORDER; selection-background-color: %LIT; selection-color: %LITTEXT; border: 1px solid %BORDER; }
QHeaderView::section { background: %BUTTON; color: %FAINT; border: none; padding: 3px; }
QSlider::groove:horizontal { height: 10px; background: %BORDER; border-radius: 5px; }
QSlider::handle:horizontal { width: 34px; margin: -15px 0; background: %BUTTON; border: 3px solid %LIT; border-radius: 8px; }
QProgressBar { min-height: 22px; border: 1px solid %BORDER; border-radius: 4px; text-align: center; background: %BASE; }
QProgressBar::chunk { background: %LIT; }
#noticeBar { background: %NOTICE; color: %NOTEXT; font-weight: bold; }
#lblStatus { background: %BASE; color: %TEXT; border: 2px solid %BORDER; border-radius: 6px; padding: 8px 12px; font-size: 18px; font-weight: bold; }
#tLR { background: %BASE; color: %TEXT; border: 2px solid %BORDER; border-radius: 6px; padding: 4px 10px; font-size: 18px; font-weight: bold; }
#lblNoMap { background: %BASE; color: %TEXT; border: 2px solid %BORDER; border-radius: 6px; font-size: 20px; }
#tNextMap { background: #c00000; color: #ffffff; font-family: Arial, 'DejaVu Sans'; font-size: 18px; font-weight: bold; padding: 8px 12px; }
#LblMapNumber { background: %BASE; color: %TEXT; border: 2px solid %BORDER; font-size: 18px; font-weight: bold; padding: 6px 10px; }
#tRoute { background: %BASE; color: %TEXT; border: 2px dashed %FOCUS; border-radius: 6px; padding: 0 8px; font-weight: bold; }
#lblRecord { color: %LITTEXT; background: transparent; }
#tKat { background: %BUTTON; color: %TEXT; }
QLineEdit { background: %BASE; color: %TEXT; border: 2px solid %BORDER; border-radius: 4px; padding: 0 6px; font-size: 20px; font-weight: bold; }
QLineEdit:focus { border-color: %FOCUS; }
QGroupBox { border: 2px solid %BORDER; border-radius: 8px; margin-top: 12px; padding: 14px 8px 4px 8px; font-size: 16px; }
QGroupBox::title { subcontrol-origin: margin; left: 14px; padding: 0 6px; }
QRadioButton, QCheckBox { min-height: 44px; font-size: 18px; spacing: 12px; border: 2px solid transparent; }
QRadioButton:checked, QCheckBox:checked { font-weight: bold; }
QRadioButton:focus, QCheckBox:focus { border-color: %FOCUS; border-radius: 8px; }
QRadioButton::indicator { width: 22px; height: 22px; border: 3px solid %BORDER; border-radius: 14px; background: %BASE; }
QRadioButton::indicator:checked { border-color: %LIT; background: qradialgradient(cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0.55 %LIT, stop:0.65 %BASE); }
QCheckBox::indicator { width: 22px; height: 22px; border: 3px solid %BORDER; border-radius: 5px; background: %BASE; }
QCheckBox::indicator:checked { border-color: %LIT; background: %LIT; image: url(:/icons/tick-%ICONS.svg); }
QCheckBox:disabled { color: %BORDER; }
QLabel[role="entry"] { background: #16191d; color: #ffff80; border: 1px solid %BORDER; border-radius: 4px; font-size: 17px; font-weight: bold; }
QLabel[role="instrument"] { color: %TEXT; font-size: 14px; font-weight: bold; }
#lblResult { font-size: 18px; font-weight: bold; }
QFrame[role="popup"], #frmSet { background: %WINDOW; border: 2px solid %BORDER; border-radius: 8px; }
QLabel[role="unit"], QLabel[role="caption"] { color: %FAINT; font-size: 12px; }
#lblNS, #lblEW { color: %TEXT; font-size: 20px; font-weight: bold; }
QFrame[role="readout"] { background: %BASE; border: 1px solid %BORDER; border-radius: 6px; }
)";

QString Filled(const Colours& c) {
    QString sheet = Sheet;
    // Longer names first: %LITTEXT begins like %LIT.
    const std::pair<const char*, const char*> fills[] = {
        {"%LITTEXT", c.LitText}, {"%NOTEXT", c.NoticeText}, {"%NOTICE", c.Notice}, {"%WINDOW", c.Window},
        {"%BASE", c.Base},       {"%TEXT", c.Text},         {"%FAINT", c.Faint},   {"%BUTTON", c.Button},
        {"%BORDER", c.Border},   {"%LIT", c.Lit},           {"%FOCUS", c.Focus},   {"%ICONS", c.Icons}};
    for (const auto& [name, colour] : fills) sheet.replace(name, colour);
    return sheet;
}

} // namespace

void Theme::Apply(QApplication& application, bool night) {
    RegisterIcons();
    const Colours& c = night ? Night : Day;
    application.setStyle(QStyleFactory::create("Fusion"));
    QPalette palette;
    const std::pair<QPalette::ColorRole, const char*> colours[] = {{QPalette::Window, c.Window},
                                                                   {QPalette::Base, c.Base},
                                                                   {QPalette::AlternateBase, c.Window},
                                                                   {QPalette::Button, c.Button},
                                                                   {QPalette::WindowText, c.Text},
                                                                   {QPalette::Text, c.Text},
                                                                   {QPalette::ButtonText, c.Text},
                                                                   {QPalette::PlaceholderText, c.Faint},
                                                                   {QPalette::Mid, c.Border},
                                                                   {QPalette::Highlight, c.Lit},
                                                                   {QPalette::HighlightedText, c.LitText},
                                                                   {QPalette::Link, c.Lit}};
    for (const auto& [role, colour] : colours) palette.setColor(role, colour);
    application.setPalette(palette);
    application.setStyleSheet(Filled(c));
}

} // namespace ornivane
