#include "app/frmInfo.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Captions.h"

namespace ornivane {

struct frmInfo::Texts {
    const char* Name;
    Bilingual Missing;
    Bilingual Unusable;
    Bilingual Purpose;
    const char* Address;
};

namespace {

constexpr const char* Host = "http://www.ornivane.example/";
constexpr Bilingual Download{"Download Datei:", "Download file:"};
constexpr Bilingual Restart{"Nach dem Download muss der Ornivane neu gestartet werden.",
                            "After downloading the file please restart ornivane"};
constexpr Bilingual Title{"Hinweis", "Hint"};
constexpr Bilingual LinkTip{"Die Seite der Datei im Browser öffnen",
                            "Open the file's address in the browser"};
constexpr Bilingual CloseTip{"Hinweis schließen; das Programm läuft ohne die Datei weiter",
                             "Close the hint; the program goes on without the file"};

constexpr frmInfo::Texts TrackTexts{
    "frmInfo1",
    {"Die Datei track.ovd wurde nicht im Ornivane Verzeichnis gefunden",
     "File track.ovd was not found in the ornivane directory"},
    {"Die Datei track.ovd konnte nicht geöffnet werden", "File track.ovd could not be opened"},
    {"Die Datei wird für den Track Logger benötigt", "Track.ovd is needed for the track logger"},
    "http://www.ornivane.example/update-gps/download/track.ovd"};

constexpr frmInfo::Texts AirspaceTexts{
    "frmInfo3",
    {"Die Datei Luftraum.ovd wurde nicht im Ornivane Verzeichnis gefunden",
     "File Luftraum.ovd was not found in the ornivane directory"},
    {"Die Datei Luftraum.ovd konnte nicht geöffnet werden", "File Luftraum.ovd could not be opened"},
    {"Die Datei wird für die Anzeige der Lufträume benötigt",
     "Luftraum.ovd is needed for the airspace display"},
    "http://www.ornivane.example/update-gps/download/Luftraum.ovd"};

QLabel* AddLabel(QVBoxLayout* layout, const char* name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
    return label;
}

QPushButton* Button(const char* name) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    button->setMinimumHeight(44);
    return button;
}

} // namespace

frmInfo* frmInfo::ForTrackStore(const Variablen& variablen, Shell& shell, const std::string& reason,
                                QWidget* parent) {
    return new frmInfo(TrackTexts, variablen, shell, reason, parent);
}

frmInfo* frmInfo::ForAirspaceStore(const Variablen& variablen, Shell& shell, const std::string& reason,
                                   QWidget* parent) {
    return new frmInfo(AirspaceTexts, variablen, shell, reason, parent);
}

frmInfo::frmInfo(const Texts& hint, const Variablen& variables, Shell& shell, const std::string& reason,
                 QWidget* parent)
    : frmInfo(variables, parent) {
    texts = &hint;
    isMissing = reason.empty();
    setObjectName(hint.Name);
    setModal(false);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    Label1 = AddLabel(layout, "Label1");
    if (!isMissing) AddLabel(layout, "lblReason")->setText(QString::fromStdString(reason));
    Label2 = AddLabel(layout, "Label2");
    Label3 = AddLabel(layout, "Label3");
    lblLink = Button("lblLink");
    lblLink->setText(hint.Address);
    connect(lblLink, &QPushButton::clicked, this, [&shell, address = hint.Address] { shell.Open(address); });
    layout->addWidget(lblLink);
    Label4 = AddLabel(layout, "Label4");
    cmdClose = Button("cmdClose");
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    layout->addWidget(cmdClose, 0, Qt::AlignRight);
    ApplyLanguage();
}

void frmInfo::ApplyLanguage() {
    if (!texts) return;
    const bool english = variablen.EnglishUI == 1;
    setWindowTitle(Title.In(english));
    Label1->setText((isMissing ? texts->Missing : texts->Unusable).In(english));
    Label2->setText(texts->Purpose.In(english));
    Label3->setText(Download.In(english));
    Label4->setText(Restart.In(english));
    lblLink->setToolTip(LinkTip.In(english));
    cmdClose->setText(captions::Close.In(english));
    cmdClose->setToolTip(CloseTip.In(english));
}

frmInfo::frmInfo(const Variablen& variables, QWidget* parent) : QDialog(parent), variablen(variables) {
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(520);
}

// The file that is named and the one that is opened have always been two.
frmInfo* frmInfo::ForReport(const Variablen& variablen, Shell& shell, QWidget* parent) {
    const bool english = variablen.EnglishUI == 1;
    auto* form = new frmInfo(variablen, parent);
    form->setObjectName("frmInfo2");
    form->setWindowTitle(Title.In(english));
    auto* layout = new QVBoxLayout(form);
    layout->setSpacing(12);
    const auto add = [&](const char* name, Bilingual text) {
        AddLabel(layout, name)->setText(text.In(english));
    };
    add("Label4", {"Ornivane benötigt die setup-d.exe Datei", "Ornivane needs the setup-e.exe file."});
    add("Label5", {"Bitte installieren Sie die Datei", "Please download and install the file"});
    add("Label2", Download);
    auto* link = new QPushButton(QString(Host) + (english ? "setup-e.exe" : "setup-d.exe"));
    link->setObjectName("Label1");
    link->setToolTip(LinkTip.In(english));
    link->setMinimumHeight(44);
    connect(link, &QPushButton::clicked, form, [&shell, english] {
        shell.Open(std::string(Host) + (english ? "support-e.exe" : "support-d.exe"));
    });
    layout->addWidget(link);
    add("Label3", {"Die Dateien werden für die Druckunterstützung benötigt",
                   "The files are needed to support the print function"});
    auto* close = new QPushButton("OK");
    close->setObjectName("cmdOK");
    close->setToolTip(captions::CloseTip.In(english));
    close->setMinimumHeight(44);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, form, &QDialog::close);
    layout->addWidget(close, 0, Qt::AlignRight);
    return form;
}

} // namespace ornivane
