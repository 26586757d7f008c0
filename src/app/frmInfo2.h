#pragma once

#include <QDialog>

#include "common/Variablen.h"
#include "platform/System.h"

namespace ornivane {

// The report cannot be shown: which file is needed for that, and where it is. Modal; deletes itself.
class frmInfo2 : public QDialog {
    Q_OBJECT
public:
    frmInfo2(const Variablen& variablen, Shell& shell, QWidget* parent);
};

} // namespace ornivane
