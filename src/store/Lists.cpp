#include "store/Lists.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "store/Connection.h"

namespace ornivane {

void Renumber(Connection& connection, const std::string& select, const std::vector<Value>& parameters) {
    Transaction transaction(connection);
    Recordset rows;
    rows.Open(connection, select + " ORDER BY Nummer ASC", parameters);
    double number = 0;
    for (; !rows.Eof(); rows.MoveNext())
        if (rows.Get("Nummer") != Value(static_cast<double>(ToInt16(++number)))) rows.Set("Nummer", number);
    transaction.Commit();
}

void InsertAfterCurrent(Connection& connection, Recordset& list, const std::string& select,
                        const std::vector<Value>& parameters,
                        const std::function<void(Recordset&)>& setFields) {
    const bool isEmpty = list.RecordCount() == 0;
    const int place = isEmpty || list.Eof() ? list.RecordCount() : list.Bof() ? 0 : list.AbsolutePosition();
    const int target = place + 1;
    const auto insert = [&] {
        Transaction transaction(connection);
        Renumber(connection, select, parameters);
        list.AddNew();
        list.Set("Nummer", isEmpty ? 1.0 : place + 0.3);
        setFields(list);
        list.Update();
        Renumber(connection, select, parameters);
        transaction.Commit();
    };
    RestoreOnError(insert, [&] {
        // The list must not go on showing a row that the roll back has taken away.
        list.CancelUpdate();
        list.Requery();
        if (place > 0) list.SetAbsolutePosition(std::min(place, list.RecordCount()));
    });
    list.Requery();
    list.Sort("Nummer"); // an order that the user chose for the grid would hide where the row went
    if (!list.Find("Nummer", Comparison::Equal, target)) list.MoveFirst();
}

} // namespace ornivane
