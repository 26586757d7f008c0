#pragma once

namespace ornivane {

// A control under the name by which the program, its tests and its demo know it.
template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

} // namespace ornivane
