#pragma once

#include <QObject>

namespace ornivane {

// A double click presses the button once. For changes of which only the last can be undone: the second of two
// would make the first final.
class SingleClick : public QObject {
public:
    explicit SingleClick(QObject& button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace ornivane
