#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/Recordset.h"

namespace ornivane {

class Connection;

// Ordered lists of the main store: their order is the field Nummer, 1..N.

// Numbers the rows of "SELECT * From <table> [WHERE ...]" anew, 1..N in the order of Nummer, in one
// transaction. RuntimeError Overflow beyond 32,767 rows.
void Renumber(Connection& connection, const std::string& select, const std::vector<Value>& parameters);

// A new row behind the current row of an open list (its Nummer is the place + 0.3 until it is renumbered; 1
// in an empty list), with its fields set by the caller. `select` is the list's table and WHERE without an
// order. The list is renumbered before, too: a gap in the numbers would put the row before the current one.
// Afterwards the list is requeried and stands on the new row. One transaction.
void InsertAfterCurrent(Connection& connection, Recordset& list, const std::string& select,
                        const std::vector<Value>& parameters,
                        const std::function<void(Recordset&)>& setFields);

} // namespace ornivane
