#include "settings/Categories.h"

#include "data/Waypoints.h"
#include "store/Connection.h"

namespace ornivane {

Categories::Categories(const Language& shownIn, Connection& mainStore, Dialogs& messages, Undo& lastDeed)
    : language(shownIn), dataConn(mainStore), table(mainStore), dialogs(messages), undo(lastDeed) {}

void Categories::Form_Load() {
    table.Open(CategoriesSet);
    GridRowChanged();
}

// A name that was typed and not yet used is kept over a visit to another screen.
void Categories::Form_Activate() {
    if (!CategoriesSet.IsOpen()) return Form_Load();
    const std::string entered = tKategorie;
    const bool isTyped = HasRow() && entered != CurrentName();
    Reread(CategoriesSet.AbsolutePosition());
    GridRowChanged();
    if (isTyped) tKategorie = entered;
}

void Categories::GridRowChanged() {
    if (HasRow()) tKategorie = CurrentName();
}

void Categories::HeadClick(int column) {
    if (column != 0) return;
    CategoriesSet.Sort("Nummer");
    GridRowChanged();
}

// Stands on the row of that name when there is one, else where it stood.
bool Categories::Exists(const std::string& name) {
    if (CategoriesSet.RecordCount() == 0) return false;
    const int place = CategoriesSet.AbsolutePosition();
    CategoriesSet.MoveFirst();
    if (CategoriesSet.Find("Kategorie", Comparison::Equal, name)) return true;
    StandOn(place);
    return false;
}

void Categories::StandOn(int place) {
    if (CategoriesSet.RecordCount() == 0) return;
    if (place >= 1 && place <= CategoriesSet.RecordCount())
        CategoriesSet.SetAbsolutePosition(place);
    else
        CategoriesSet.MoveLast();
}

void Categories::Reread(int place) {
    CategoriesSet.CancelUpdate();
    CategoriesSet.Requery(); // stands on the first row
    if (place > 1) StandOn(place);
}

void Categories::cmdAdd_Click() {
    const char* const title = language.Text("Datenfehler", "Data error");
    if (tKategorie.empty())
        return dialogs.Message(
            title, language.Text("Bitte Name für die Kategorie eingeben", "Please enter a category name"));
    const std::string name = tKategorie;
    if (Exists(name)) {
        GridRowChanged();
        return dialogs.Message(
            title, language.Text("Die Kategorie existiert schon. Bitte einen anderen Namen vergeben.",
                                 "Category already exists. Please choose another name..."));
    }
    table.InsertAfterCurrent(CategoriesSet, name);
    GridRowChanged();
}

// After an error the list must not show what the roll back has taken away.
void Categories::ChangeStore(int place, const std::function<void()>& change) {
    RestoreOnError(
        [&] {
            Transaction transaction(dataConn);
            change();
            transaction.Commit();
        },
        [&] { Reread(place); });
}

void Categories::cmdChange_Click() {
    if (!HasRow()) return;
    const int place = CategoriesSet.AbsolutePosition();
    const bool isOther = tKategorie != CurrentName();
    Undo::Deed deed = KeepChanged();
    ChangeStore(place, [this] {
        Waypoints(dataConn).MoveCategory(CurrentName(), tKategorie);
        CategoriesSet.Set("Kategorie", tKategorie);
        CategoriesSet.Update();
    });
    if (isOther) undo.Offer(std::move(deed)); // an unchanged name must not replace the last offer
    GridRowChanged();
}

// The category as it is now, and of which waypoints it is. Only those that still have the new name get the
// old one back: what was given to a waypoint since then stays. When no category has the new name any more,
// those that got it since then follow; those that had it before have it still.
Undo::Deed Categories::KeepChanged() {
    const std::int64_t row = CategoriesSet.RowId();
    const KeptColumn name = table.KeepName(row);
    const KeptColumn waypoints = Waypoints(dataConn).KeepCategory(CurrentName());
    const KeptColumn strays = Waypoints(dataConn).KeepCategory(tKategorie);
    const std::string shown = Undo::NameOf(CategoriesSet, "Kategorie");
    return {{"Kategorie %1 geändert", "Category %1 changed"},
            shown,
            dataConn,
            [this, name, waypoints, strays, before = CurrentName(), present = tKategorie] {
                name.PutBack();
                waypoints.PutBackOver(present);
                if (present.empty() || table.CountOf(present) > 0) return;
                Waypoints(dataConn).MoveCategory(present, before);
                strays.PutBackOver(before);
            },
            [this, row] { ShowAgain(row); }};
}

// A category that was added again meanwhile does not come back beside itself; its waypoints do.
Undo::Deed Categories::KeepDeleted() {
    const KeptListRow row = table.Keep(CategoriesSet.RowId());
    const KeptColumn waypoints = Waypoints(dataConn).KeepCategory(CurrentName());
    const std::string shown = Undo::NameOf(CategoriesSet, "Kategorie");
    return {{"Kategorie %1 gelöscht", "Category %1 deleted"},
            shown,
            dataConn,
            [this, row, waypoints, name = CurrentName(), count = table.CountOf(CurrentName())] {
                const bool isThere = count > 0 && table.CountOf(name) >= count; // a damaged one has no name
                rowBack = isThere ? table.RowOf(name) : row.PutBack();
                waypoints.PutBackOver("");
            },
            [this] { ShowAgain(rowBack); }};
}

void Categories::ShowAgain(std::int64_t rowId) {
    CategoriesSet.Requery();
    while (!CategoriesSet.Eof() && CategoriesSet.RowId() != rowId) CategoriesSet.MoveNext();
    GridRowChanged();
}

void Categories::cmdDelete_Click() {
    if (!HasRow()) return;
    const int place = CategoriesSet.AbsolutePosition();
    Undo::Deed deed = KeepDeleted();
    ChangeStore(place, [this] {
        Waypoints(dataConn).MoveCategory(CurrentName(), "");
        CategoriesSet.Delete();
        table.Renumber();
    });
    undo.Offer(std::move(deed));
    Reread(place); // the next one, or the new last one
    GridRowChanged();
}

} // namespace ornivane
