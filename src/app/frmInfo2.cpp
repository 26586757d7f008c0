#include "app/frmInfo2.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Captions.h"
#include "platform/qt/Named.h"

namespace ornivane {

namespace {

constexpr const char* Host = "http://www.ornivane.example/";

QPushButton* AddButton(QVBoxLayout& layout, const char* name, const QString& text) {
    auto* button = Named(new QPushButton(text), name);
    button->setMinimumHeight(44);
    layout.addWidget(button);
    return button;
}

} // namespace

// The file named in the text and the one that the button opens are two, on purpose.
frmInfo2::frmInfo2(const Language& language, Shell& shell, QWidget* parent) : QDialog(parent) {
    setObjectName("frmInfo2");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setMinimumWidth(520);
    setWindowTitle(language.Text("Hinweis", "Hint"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    const auto label = [&](const char* name, const char* german, const char* inEnglish) {
        layout->addWidget(Named(new QLabel(language.Text(german, inEnglish)), name));
    };
    label("Label4", "Ornivane benötigt die setup-d.exe Datei", "Ornivane needs the setup-e.exe file.");
    label("Label5", "Bitte installieren Sie die Datei", "Please download and install the file");
    label("Label2", "Download Datei:", "Download file:");
    auto* link = AddButton(*layout, "Label1", QString(Host) + language.Text("setup-d.exe", "setup-e.exe"));
    link->setToolTip(
        language.Text("Die Seite der Datei im Browser öffnen", "Open the file's address in the browser"));
    const std::string opened = std::string(Host) + language.Text("support-d.exe", "support-e.exe");
    connect(link, &QPushButton::clicked, this, [&shell, opened] { shell.Open(opened); });
    label("Label3", "Die Dateien werden für die Druckunterstützung benötigt",
          "The files are needed to support the print function");
    auto* close = AddButton(*layout, "cmdOK", "OK");
    close->setToolTip(captions::CloseTip.In(language));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
}

} // namespace ornivane
