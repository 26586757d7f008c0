#pragma once

#include "base/Language.h"
#include "common/OpenStores.h"
#include "common/Qnh.h"
#include "common/Settings.h"

namespace ornivane {

// What the screens of a running program share, made by main and handed to them. A component below a screen
// takes the part that it uses.
struct Variablen : Language, OpenStores, Settings, DayQnh {};

} // namespace ornivane
