#include "platform/qt/SingleClick.h"

#include <QEvent>

namespace ornivane {

SingleClick::SingleClick(QObject& button) : QObject(&button) { button.installEventFilter(this); }

bool SingleClick::eventFilter(QObject*, QEvent* event) {
    return event->type() == QEvent::MouseButtonDblClick;
}

} // namespace ornivane
