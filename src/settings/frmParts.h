#pragma once

#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/qt/Named.h"

namespace ornivane::parts {

// Controls that the forms of the settings share.

QPushButton* Button(const char* name);
QComboBox* Combo(const char* name);
QLabel* Label(const char* name, const QString& text = {});
// Rows high enough for a finger; a press chooses a row or leaves it out again, Ctrl+A takes all.
QListView* ChoiceList(const char* name);
// The chosen rows, from 0, ascending.
std::vector<std::size_t> ChosenRows(const QListView& list);
QStringList Texts(const std::vector<std::string>& texts);

// Less padding than elsewhere, because the settings fill a small screen; rows of lists high enough to be hit
// in turbulence.
extern const char* const SectionStyle;

} // namespace ornivane::parts
