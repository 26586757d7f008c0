#include "app/frmInfo2.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Captions.h"
#include "platform/qt/Named.h"

namespace ornivane {

namespace {

constexpr const char* Host = "http://www.ornivane.example/";

QPushButton* AddButton(QVBoxLayout& layout, const char* name, const QString& text, const QString& tip) {
    auto* button = Named(new QPushButton(text), name);
    button->setToolTip(tip);
    button->setMinimumHeight(44);
    layout.addWidget(button);
    return button;
}

} // namespace

// The file that is named and the one that is opened have always been two.
frmInfo2::frmInfo2(const Variablen& variablen, Shell& shell, QWidget* parent) : QDialog(parent) {
    const bool english = variablen.EnglishUI == 1;
    setObjectName("frmInfo2");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setMinimumWidth(520);
    setWindowTitle(variablen.Text("Hinweis", "Hint"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    const auto label = [&](const char* name, const char* german, const char* inEnglish) {
        layout->addWidget(Named(new QLabel(variablen.Text(german, inEnglish)), name));
    };
    label("Label4", "Ornivane benötigt die setup-d.exe Datei", "Ornivane needs the setup-e.exe file.");
    label("Label5", "Bitte installieren Sie die Datei", "Please download and install the file");
    label("Label2", "Download Datei:", "Download file:");
    auto* link = AddButton(
        *layout, "Label1", QString(Host) + (english ? "setup-e.exe" : "setup-d.exe"),
        variablen.Text("Die Seite der Datei im Browser öffnen", "Open the file's address in the browser"));
    connect(link, &QPushButton::clicked, this, [&shell, english] {
        shell.Open(std::string(Host) + (english ? "support-e.exe" : "support-d.exe"));
    });
    label("Label3", "Die Dateien werden für die Druckunterstützung benötigt",
          "The files are needed to support the print function");
    auto* close = AddButton(*layout, "cmdOK", "OK", captions::CloseTip.In(english));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
}

} // namespace ornivane
