#pragma once

#include <QDialog>

#include "base/Language.h"
#include "platform/System.h"

namespace ornivane {

// Version, change log, web links, and whose data and libraries the program uses under which licences.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    frmAbout(const Language& language, Shell& shell, QWidget* parent);
};

} // namespace ornivane
