#pragma once

#include <QVBoxLayout>
#include <QWidget>

#include "platform/qt/QtNotice.h"

namespace ornivane {

// A window with a form of the fixture, which outlives it, and the notice at its bottom.
inline QWidget* WindowAround(QWidget& form, QtNotice& notice, int height) {
    auto* window = new QWidget;
    auto* rows = new QVBoxLayout(window);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(&form);
    notice.StandIn(*window);
    window->resize(1024, height);
    window->show();
    return window;
}

} // namespace ornivane
