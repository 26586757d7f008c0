#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "common/Variablen.h"
#include "platform/System.h"

namespace ornivane {

// The first thing seen: name, version and whether there is an update. Reads the settings that all screens
// need while it stands.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    frmSplash(Variablen& shared, Web& updateServer);

    // Called once, after two seconds or a click.
    void OnEnd(std::function<void()> callback) { ended = std::move(callback); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void CheckForUpdate();
    void End();

    enum class Check { Due, Running, Done };

    Variablen& variablen;
    Web& web;
    std::function<void()> ended;
    QLabel lblVersion{this};
    QLabel lblUpdate{this};
    QTimer Timer1{this};
    Check check = Check::Due;
    bool endAsked = false;
};

} // namespace ornivane
