#pragma once

class QApplication;

namespace ornivane {

// The look of the program, in one place: high contrast, large controls, by day and by night. Charts are never
// recoloured.
class Theme {
public:
    static void Apply(QApplication& application, bool night);
};

} // namespace ornivane
