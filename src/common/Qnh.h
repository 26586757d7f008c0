#pragma once

#include <string>

#include "common/Date.h"
#include "common/Variablen.h"

namespace ornivane {

// Takes a text as the QNH, wherever it was entered: a number from 950 to below 1050 hPa holds for this day,
// anything else is the standard pressure. The entry field of the settings holds what counts then.
void EnterQnh(Variablen& shared, const std::string& text, const Date& today);

// What an entry field shows of the QNH in force, to be typed over or left: the text as it was typed while it
// is that QNH, or its whole number. 1049.6 is a QNH, and rounded it would be none.
std::string QnhText(const Variablen& shared);

} // namespace ornivane
