#pragma once

#include <string>
#include <vector>

class QComboBox;

namespace ornivane {

// Shows these entries and the current one; none when it is not among them. Entries that stand already are
// left alone: a list that is open must not change under the finger.
void FillCombo(QComboBox& combo, const std::vector<std::string>& names, const std::string& current);

} // namespace ornivane
