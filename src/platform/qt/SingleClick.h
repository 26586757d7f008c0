#pragma once

#include <QObject>

namespace ornivane {

// A double click presses the button once. For what can be taken back once only: the second of two deeds would
// leave the first for good.
class SingleClick : public QObject {
public:
    explicit SingleClick(QObject& button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace ornivane
