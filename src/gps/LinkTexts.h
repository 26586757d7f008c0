#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "common/Variablen.h"
#include "gps/HeardSentences.h"

namespace ornivane {

// Texts that the flying screen and the port test share.

// "COM 5 does not exist"; for a device that this user may not open it names the group to join instead, and
// one that another program holds is told to be in use.
std::string OpenFailureText(const RuntimeError& error, const std::string& port, const Variablen& shared);

// "Talkers: GN, GL\nlast minute: 180 sentences, 0 bad checksums", and when there are any "\nunreadable since
// the start: 2", which are right and yet too short or no numbers; empty when nothing was heard.
std::string HeardText(const HeardSentences& heard, unsigned long long failed, const Variablen& shared);

// The title of boxes that have none of their own.
inline constexpr const char* MessageTitle = "Ornivane GPS";

} // namespace ornivane
