#pragma once

#include <QGroupBox>

#include "gps/PortTest.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ornivane {

class EventGuard;

// The port test: port and baud rate, and what the receiver says.
class frmPortPanel : public QGroupBox {
    Q_OBJECT

public:
    frmPortPanel(PortTest& portTest, const PortList& portList, const Language& shownIn, EventGuard& guard);

    void ShowState();
    void ApplyLanguage();

private:
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }
    void MakeChoice(QBoxLayout& layout, EventGuard& guard);
    void MakeDisplays(QBoxLayout& layout);
    void FillPorts();

    PortTest& test;
    const PortList& ports;
    const Language& language;
    QComboBox *cmbCom = nullptr, *cmbBaud = nullptr;
    QPushButton* cmdCheck = nullptr;
    QLineEdit* tGPS = nullptr;
    QLabel *lblStatus = nullptr, *lblHint = nullptr, *lblComVerbindung = nullptr, *LabelStatus = nullptr;
    QLabel *lblSatellites = nullptr, *lblLat = nullptr, *lblLong = nullptr, *latCaption = nullptr,
           *longCaption = nullptr;
};

} // namespace ornivane
