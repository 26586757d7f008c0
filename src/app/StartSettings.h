#pragma once

#include "common/Variablen.h"

namespace ornivane {

// The settings that the program reads once when it starts. Files that are missing or damaged leave the values
// as they are and nobody is told.

// Language, aircraft symbol and track logger: before anything is shown.
void ReadStartSettings(Variablen& variablen);

// The QNH and the day on which it was entered.
void ReadQnh(Variablen& variablen);

} // namespace ornivane
