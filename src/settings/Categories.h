#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Language.h"
#include "common/Undo.h"
#include "data/WaypointCategories.h"
#include "platform/Dialogs.h"

namespace ornivane {

// The list of waypoint categories and its entry field. A waypoint holds the name of its category, not a key,
// so renaming and deleting rewrite the waypoints; each command is one transaction.
class Categories {
public:
    // `lastDeed`: takes back the last change or deletion.
    Categories(const Language& shownIn, Connection& mainStore, Dialogs& messages, Undo& lastDeed);

    void Form_Load();
    // Rereads the list; stands where it stood.
    void Form_Activate();
    // The grid stands on another row.
    void GridRowChanged();
    // A click on the head of a column, from 0.
    void HeadClick(int column);
    void cmdAdd_Click();
    // Neither an empty name nor one that exists is refused: the waypoints of both are one category then.
    void cmdChange_Click();
    // Without a question; the waypoints stay, in no category.
    void cmdDelete_Click();
    void tKategorie_DblClick() { tKategorie.clear(); }

    Recordset CategoriesSet; // its current row is the grid's
    std::string tKategorie;  // the entry field

private:
    std::string CurrentName() const { return CategoriesSet.TextOrEmpty("Kategorie"); }
    bool HasRow() const { return CategoriesSet.RecordCount() > 0 && !CategoriesSet.Eof(); }
    bool Exists(const std::string& name);
    // The row at this place, from 1, or the last one.
    void StandOn(int place);
    void Reread(int place);
    // All of it or nothing.
    void ChangeStore(int place, const std::function<void()>& change);
    Undo::Deed KeepChanged();
    Undo::Deed KeepDeleted();
    void ShowAgain(std::int64_t rowId);

    const Language& language;
    Connection& dataConn;
    WaypointCategories table;
    Dialogs& dialogs;
    Undo& undo;
    std::int64_t rowBack = 0; // identity of the category that an undo has put back
};

} // namespace ornivane
