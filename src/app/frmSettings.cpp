#include "app/frmSettings.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "common/SettingsFiles.h"

namespace ornivane {

namespace {

// Choices are hit in turbulence: large marks, seen by day and by night.
constexpr const char* ChoiceStyle = R"(
QGroupBox { border: 2px solid palette(mid); border-radius: 8px; margin-top: 12px; padding: 16px 8px 4px 8px; font-size: 18px; }
QGroupBox::title { subcontrol-origin: margin; left: 14px; padding: 0 6px; }
QRadioButton { font-size: 18px; spacing: 12px; border: 2px solid transparent; }
QRadioButton:checked { font-weight: bold; }
QRadioButton:focus { border-color: palette(highlight); border-radius: 8px; }
QRadioButton::indicator { width: 22px; height: 22px; border: 3px solid palette(mid); border-radius: 14px; background: palette(base); }
QRadioButton::indicator:checked { border-color: palette(highlight); background: qradialgradient(cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0.55 palette(highlight), stop:0.65 palette(base)); }
)";

void Name(QWidget& widget, const char* name) { widget.setObjectName(name); }

void LayOutPair(QGroupBox& box, QRadioButton& first, QRadioButton& second) {
    auto* layout = new QHBoxLayout(&box);
    for (QRadioButton* button : {&first, &second}) {
        button->setMinimumSize(180, 44);
        layout->addWidget(button);
    }
    layout->addStretch();
}

} // namespace

frmSettings::frmSettings(Variablen& variablenOf, EventGuard& guard, std::function<void()> languageChangedOf)
    : variablen(variablenOf), languageChanged(std::move(languageChangedOf)) {
    Name(*this, "frmSettings");
    Name(lblTitle, "lblTitle");
    Name(frmLanguage, "frmLanguage");
    Name(frmSymbol, "frmSymbol");
    Name(OptGer, "OptGer");
    Name(OptEng, "OptEng");
    Name(Option1, "Option1");
    Name(Option2, "Option2");
    Name(lblText, "lblText");
    lblTitle.setStyleSheet("font-size: 28px; font-weight: bold");
    lblText.setStyleSheet("font-size: 18px");
    lblText.setWordWrap(true);
    setStyleSheet(ChoiceStyle);
    LayOutPair(frmLanguage, OptGer, OptEng);
    LayOutPair(frmSymbol, Option1, Option2);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(48, 32, 48, 32);
    layout->setSpacing(20);
    layout->addWidget(&lblTitle);
    layout->addWidget(&frmLanguage);
    layout->addWidget(&frmSymbol);
    layout->addWidget(&lblText);
    layout->addStretch();

    guard.Connect(&OptGer, &QRadioButton::clicked, [this] { ChooseLanguage(0); });
    guard.Connect(&OptEng, &QRadioButton::clicked, [this] { ChooseLanguage(1); });
    guard.Connect(&Option1, &QRadioButton::clicked, [this] { ChooseSymbol(1); });
    guard.Connect(&Option2, &QRadioButton::clicked, [this] { ChooseSymbol(2); });
    frmSettings::ApplyLanguage();
    ShowState();
}

void frmSettings::Form_Activate() {
    ApplyLanguage();
    ShowState();
}

void frmSettings::ShowState() {
    (variablen.EnglishUI == 1 ? OptEng : OptGer).setChecked(true);
    (variablen.SymbolType == 1 ? Option1 : Option2).setChecked(true);
}

// Captions first: they are also keys, and must fit the language even when the file cannot be written.
void frmSettings::ChooseLanguage(std::int16_t language) {
    variablen.EnglishUI = language;
    languageChanged();
    WriteLanguage(variablen.ProgramFolder, language);
}

void frmSettings::ChooseSymbol(std::int16_t symbol) {
    variablen.SymbolType = symbol;
    WriteSymbol(variablen.ProgramFolder, symbol);
}

void frmSettings::ApplyLanguage() {
    const auto text = [this](const char* german, const char* english) {
        return variablen.Text(german, english);
    };
    lblTitle.setText(text("Einstellungen", "Settings"));
    frmLanguage.setTitle(text("Sprache", "Language"));
    OptGer.setText("Deutsch");
    OptEng.setText("English");
    OptGer.setToolTip(text("Alle Texte auf Deutsch", "All texts in German"));
    OptEng.setToolTip(text("Alle Texte auf Englisch", "All texts in English"));
    frmSymbol.setTitle(text("Flugzeugsymbol", "Airplane symbol"));
    Option1.setText(text("Pfeil", "Arrow"));
    Option2.setText(text("Flugzeug", "Aeroplane"));
    Option1.setToolTip(text("Das eigene Flugzeug als Pfeil zeigen", "Show the own aircraft as an arrow"));
    Option2.setToolTip(text("Das eigene Flugzeug als Umriss zeigen", "Show the own aircraft as an outline"));
    lblText.setText(
        text("Test des GPS-Anschlusses, Track Logger, QNH und Wegpunkt-Kategorien kommen in einer späteren "
             "Ausgabe des Programms. Es gibt sie noch nicht.",
             "The test of the GPS port, the track logger, QNH and waypoint categories come in a later "
             "edition of the program. They are not there yet."));
}

} // namespace ornivane
