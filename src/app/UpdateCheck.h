#pragma once

#include <string>

#include "platform/System.h"

namespace ornivane {

// The version of this program: major, minor and revision, joined by points.
const std::string& ProgramVersion();

// Whether the makers' server offers another version than this one. Blocks for three seconds at most; a server
// that cannot be reached is silent and offers nothing. There is no order of versions: any difference is an
// offer, so that a withdrawn version can be replaced by an older one.
bool UpdateOffered(Web& web, const std::string& localVersion);

} // namespace ornivane
