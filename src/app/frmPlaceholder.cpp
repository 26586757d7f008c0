#include "app/frmPlaceholder.h"

#include <QVBoxLayout>

namespace ornivane {

namespace {

constexpr Bilingual NotYet{
    "Dieser Bildschirm kommt in einer späteren Ausgabe des Programms. Es gibt ihn noch nicht.",
    "This screen comes in a later edition of the program. It is not there yet."};

} // namespace

frmPlaceholder::frmPlaceholder(const Variablen& variablenOf, const char* name, Bilingual titleOf,
                               Bilingual purposeOf)
    : variablen(variablenOf), title(titleOf), purpose(purposeOf) {
    setObjectName(name);
    lblTitle.setObjectName("lblTitle");
    lblText.setObjectName("lblText");
    lblText.setWordWrap(true);
    lblTitle.setStyleSheet("font-size: 28px; font-weight: bold");
    lblText.setStyleSheet("font-size: 18px");
    for (QLabel* label : {&lblTitle, &lblText}) label->setAlignment(Qt::AlignCenter);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(48, 32, 48, 32);
    layout->setSpacing(20);
    layout->addStretch();
    layout->addWidget(&lblTitle);
    layout->addWidget(&lblText);
    layout->addStretch();
    frmPlaceholder::ApplyLanguage();
}

void frmPlaceholder::ApplyLanguage() {
    const bool english = variablen.EnglishUI == 1;
    lblTitle.setText(QString(title.In(english)).simplified());
    lblText.setText(QString("%1\n\n%2").arg(purpose.In(english), NotYet.In(english)));
}

} // namespace ornivane
