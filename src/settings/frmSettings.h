#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/qt/Screen.h"
#include "settings/SettingsScreen.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace ornivane {

class EventGuard;
class frmCategoryPanel;
class frmPortPanel;

struct SettingsFormServices {
    SettingsWorld World;
    EventGuard& Guard;
    std::function<void()> LanguageChanged;  // rewrites every caption of the program
    std::function<void()> ShowTrackManager; // empty: the button for it is off
};

// The settings screen.
class frmSettings : public Screen {
    Q_OBJECT

public:
    explicit frmSettings(const SettingsFormServices& services);
    ~frmSettings() override;

    void Form_Activate() override;
    void Form_Deactivate() override;
    void ApplyLanguage() override;

private:
    QWidget* Row(QGroupBox*& box, const char* name, const std::vector<QRadioButton*>& choices);
    void MakeLeft(QBoxLayout& column);
    QGroupBox* MakeTrack();
    QGroupBox* MakeAirspace();
    void Run(const std::function<void()>& event);
    // The state shows also when the step ends in an error, which goes on to the caller.
    void ShownAfter(const std::function<void()>& step);
    void ShowState();
    void ApplyTooltips();
    QString Text(const char* german, const char* english) const {
        return services.World.Shared.Text(german, english);
    }
    void OrderTabs();

    SettingsFormServices services;
    std::unique_ptr<SettingsScreen> logic;
    QLabel *lblTitle = nullptr, *intervalCaption = nullptr;
    frmPortPanel* port = nullptr;
    frmCategoryPanel* categories = nullptr;
    QGroupBox *frmLanguage = nullptr, *frmSymbol = nullptr, *Frame4 = nullptr, *frmLuftraum = nullptr;
    std::vector<QRadioButton*> languages; // OptGer, OptEng
    QRadioButton *Option1 = nullptr, *Option2 = nullptr;
    QCheckBox *chkTrack = nullptr, *chkAutoOn = nullptr;
    QComboBox* cmbTrack = nullptr;
    QPushButton* cmdTrack = nullptr;
    QLineEdit* tQNH = nullptr;
};

} // namespace ornivane
