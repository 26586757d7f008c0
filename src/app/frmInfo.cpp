#include "app/frmInfo.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Captions.h"
#include "platform/qt/Named.h"

namespace ornivane {

struct frmInfo::Texts {
    const char* Name;
    Bilingual Missing;
    Bilingual Unusable;
    Bilingual Purpose;
    const char* Address;
};

namespace {

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
    auto* label = Named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
    return label;
}

QPushButton* Button(const char* name) {
    auto* button = Named(new QPushButton, name);
    button->setMinimumHeight(44);
    return button;
}

} // namespace

frmInfo::frmInfo(Store about, const Language& shownIn, Shell& shell, const std::string& reason,
                 QWidget* parent)
    : QDialog(parent), texts(about == Store::Track ? TrackTexts : AirspaceTexts), language(shownIn),
      isMissing(reason.empty()) {
    setObjectName(texts.Name);
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(520);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    Label1 = AddLabel(layout, "Label1");
    if (!isMissing) AddLabel(layout, "lblReason")->setText(QString::fromStdString(reason));
    Label2 = AddLabel(layout, "Label2");
    Label3 = AddLabel(layout, "Label3");
    lblLink = Button("lblLink");
    lblLink->setText(texts.Address);
    connect(lblLink, &QPushButton::clicked, this, [&shell, address = texts.Address] { shell.Open(address); });
    layout->addWidget(lblLink);
    Label4 = AddLabel(layout, "Label4");
    cmdClose = Button("cmdClose");
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    layout->addWidget(cmdClose, 0, Qt::AlignRight);
    ApplyLanguage();
}

void frmInfo::ApplyLanguage() {
    setWindowTitle(Title.In(language));
    Label1->setText((isMissing ? texts.Missing : texts.Unusable).In(language));
    Label2->setText(texts.Purpose.In(language));
    Label3->setText(Download.In(language));
    Label4->setText(Restart.In(language));
    lblLink->setToolTip(LinkTip.In(language));
    cmdClose->setText(captions::Close.In(language));
    cmdClose->setToolTip(CloseTip.In(language));
}

} // namespace ornivane
