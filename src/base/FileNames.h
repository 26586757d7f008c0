#pragma once

#include <string_view>

namespace ornivane {

// For file names made from a user's text: RuntimeError BadFileName when it is no single name in its folder,
// that is when it holds a separator (of any system, since folders are copied between them) or a control
// character, or is "." or "..".
void CheckFileName(std::string_view name);
bool IsFileName(std::string_view name); // what CheckFileName lets pass

} // namespace ornivane
