#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <functional>

#include "common/Variablen.h"
#include "platform/qt/Events.h"
#include "platform/qt/Screen.h"

namespace ornivane {

// The settings screen, so far as it exists: language and aircraft symbol. The rest of the page says what
// comes.
class frmSettings : public Screen {
    Q_OBJECT
public:
    // The callback rewrites every caption of the program.
    frmSettings(Variablen& variablen, EventGuard& guard, std::function<void()> languageChanged);

    void Form_Activate() override;
    void ApplyLanguage() override;

private:
    void ChooseLanguage(std::int16_t language);
    void ChooseSymbol(std::int16_t symbol);
    void ShowState();

    Variablen& variablen;
    std::function<void()> languageChanged;
    QLabel lblTitle;
    QGroupBox frmLanguage, frmSymbol;
    QRadioButton OptGer, OptEng, Option1, Option2;
    QLabel lblText;
};

} // namespace ornivane
