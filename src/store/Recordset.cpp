#include "store/Recordset.h"

#include <algorithm>
#include <optional>

#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "store/RecordsetRows.h"
#include "store/RowsetXml.h"
#include "store/TableSource.h"

namespace ornivane {

struct Recordset::State {
    enum class Edit { None, Changing, Adding };

    std::optional<TableSource> Source; // none: detached, or opened from a file
    bool Open = false;
    std::vector<FieldInfo> Fields;
    std::vector<Row> Rows;
    std::vector<std::size_t> Order; // rows shown, by their number in Rows
    int Current = 0;                // place in Order; -1 before the first, its size behind the last
    Edit Pending = Edit::None;
    TableSource::Assigned Assigned;
    std::string SortField;
    std::vector<RecordsetObserver*> Observers;

    int Count() const { return static_cast<int>(Order.size()); }
    bool OnRow() const { return Current >= 0 && Current < Count(); }
    const Row& CurrentRow() const {
        if (!Open) throw RuntimeError(ErrorNumber::ObjectClosed);
        if (!OnRow()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
        return Rows[Order[static_cast<std::size_t>(Current)]];
    }
    template <typename Tell>
    void Notify(Tell tell) const {
        const auto observers = Observers; // while one is told, it or another may leave
        for (RecordsetObserver* observer : observers)
            if (std::find(Observers.begin(), Observers.end(), observer) != Observers.end()) tell(*observer);
    }
    void Forget() {
        Pending = Edit::None;
        Assigned.assign(Fields.size(), std::nullopt);
    }
    void Take(std::vector<FieldInfo> fields, std::vector<Row> rows) {
        Fields = std::move(fields);
        Rows = std::move(rows);
        Open = true;
        Forget();
        Arrange();
    }
    void Arrange();
    void StandOn(int place);
};

void Recordset::State::Arrange() {
    Order.clear();
    for (std::size_t i = 0; i < Rows.size(); ++i)
        if (!Rows[i].Deleted) Order.push_back(i);
    if (!SortField.empty()) {
        const std::size_t column = ColumnOf(Fields, SortField);
        std::stable_sort(Order.begin(), Order.end(), [&](std::size_t a, std::size_t b) {
            return CompareValues(Rows[a].Values[column], Rows[b].Values[column]) < 0;
        });
    }
    Current = 0;
    Notify([](RecordsetObserver& observer) { observer.RowsReset(); });
    Notify([](RecordsetObserver& observer) { observer.CurrentRowChanged(); });
}

void Recordset::State::StandOn(int place) {
    if (place == Current) return;
    Current = place;
    Notify([](RecordsetObserver& observer) { observer.CurrentRowChanged(); });
}

Recordset::Recordset() : state(std::make_unique<State>()) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(Connection& connection, const std::string& sql, std::vector<Value> parameters) {
    TableSource source(connection, sql, std::move(parameters));
    TableSource::Result result = source.Load();
    state->Source = std::move(source);
    state->SortField.clear();
    state->Take(std::move(result.Fields), std::move(result.Rows));
}

void Recordset::OpenFile(const std::filesystem::path& file) {
    const auto bytes = ReadWholeFile(file);
    if (!bytes) throw RuntimeError(ErrorNumber::FileNotFound, file.string());
    Rowset rowset = ReadRowset(*bytes);
    std::vector<Row> rows(rowset.Rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i].Values = std::move(rowset.Rows[i]);
    state->Source.reset();
    state->SortField.clear();
    state->Take(std::move(rowset.Fields), std::move(rows));
}

void Recordset::AppendField(const FieldInfo& field) {
    if (state->Open) throw RuntimeError(ErrorNumber::InvalidCall, field.Name);
    state->Fields.push_back(field);
}

void Recordset::OpenDetached() {
    state->Source.reset();
    state->Take(std::move(state->Fields), {});
}

bool Recordset::IsOpen() const { return state->Open; }

void Recordset::Close() {
    std::vector<RecordsetObserver*> observers = std::move(state->Observers);
    *state = State();
    state->Observers = std::move(observers);
    state->Notify([](RecordsetObserver& observer) { observer.RowsReset(); });
}

void Recordset::Requery() {
    if (!state->Open) throw RuntimeError(ErrorNumber::ObjectClosed);
    if (!state->Source) return MoveFirst();
    TableSource::Result result = state->Source->Load();
    state->Take(std::move(result.Fields), std::move(result.Rows));
}

const std::vector<FieldInfo>& Recordset::Fields() const { return state->Fields; }

int Recordset::RecordCount() const { return state->Count(); }

int Recordset::AbsolutePosition() const {
    if (state->Count() == 0) return -1;
    return state->OnRow() ? state->Current + 1 : state->Current < 0 ? -2 : -3;
}

void Recordset::SetAbsolutePosition(int position) {
    Update();
    if (position < 1 || position > state->Count()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    state->StandOn(position - 1);
}

bool Recordset::Eof() const { return state->Count() == 0 || state->Current >= state->Count(); }
bool Recordset::Bof() const { return state->Count() == 0 || state->Current < 0; }

void Recordset::MoveFirst() {
    Update();
    if (state->Count() > 0) state->StandOn(0);
}

void Recordset::MoveLast() {
    Update();
    if (state->Count() > 0) state->StandOn(state->Count() - 1);
}

void Recordset::MoveNext() {
    Update();
    if (Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    state->StandOn(state->Current + 1);
}

void Recordset::MovePrevious() {
    Update();
    if (Bof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    state->StandOn(state->Current - 1);
}

bool Recordset::Find(std::string_view field, Comparison comparison, const Value& value) {
    Update();
    const std::size_t column = ColumnOf(state->Fields, field);
    int place = std::max(state->Current, 0);
    while (
        place < state->Count() &&
        !Meets(state->Rows[state->Order[static_cast<std::size_t>(place)]].Values[column], comparison, value))
        ++place;
    state->StandOn(place);
    return place < state->Count();
}

void Recordset::Sort(std::string_view field) {
    Update();
    static_cast<void>(ColumnOf(state->Fields, field));
    state->SortField = field;
    state->Arrange();
}

Value Recordset::Get(std::string_view field) const {
    const std::size_t column = ColumnOf(state->Fields, field);
    if (state->Pending != State::Edit::None && state->Assigned[column]) return *state->Assigned[column];
    if (state->Pending == State::Edit::Adding) return {};
    return state->CurrentRow().Values[column];
}

void Recordset::Set(std::string_view field, const Value& value) {
    const std::size_t column = ColumnOf(state->Fields, field);
    if (state->Pending != State::Edit::Adding) static_cast<void>(state->CurrentRow());
    state->Assigned[column] = ConvertFor(state->Fields[column], value);
    if (state->Pending == State::Edit::None) state->Pending = State::Edit::Changing;
}

void Recordset::AddNew() {
    if (!state->Open) throw RuntimeError(ErrorNumber::ObjectClosed);
    Update();
    state->Pending = State::Edit::Adding;
}

void Recordset::CancelUpdate() { state->Forget(); }

void Recordset::Update() {
    State& s = *state;
    if (s.Pending == State::Edit::None) return;
    const bool adding = s.Pending == State::Edit::Adding;
    const TableSource::Assigned assigned = s.Assigned;
    s.Forget(); // a row that the store refuses is not tried again at the next move
    if (adding) {
        Row row;
        if (s.Source) {
            row = s.Source->Insert(s.Fields, assigned);
        } else {
            for (const auto& value : assigned) row.Values.push_back(value.value_or(Value()));
        }
        s.Rows.push_back(std::move(row));
        s.Order.push_back(s.Rows.size() - 1);
        s.Current = s.Count() - 1;
        s.Notify([&](RecordsetObserver& observer) { observer.RowInserted(s.Count() - 1); });
        s.Notify([](RecordsetObserver& observer) { observer.CurrentRowChanged(); });
        return;
    }
    const int place = s.Current;
    Row& row = s.Rows[s.Order[static_cast<std::size_t>(place)]];
    if (s.Source) {
        row = s.Source->Update(s.Fields, row.RowId, assigned);
    } else {
        for (std::size_t i = 0; i < assigned.size(); ++i)
            if (assigned[i]) row.Values[i] = *assigned[i];
    }
    s.Notify([&](RecordsetObserver& observer) { observer.RowChanged(place); });
}

void Recordset::Delete() {
    State& s = *state;
    const bool adding = s.Pending == State::Edit::Adding;
    s.Forget();
    if (adding) return; // the new row was the current one, not the row that was left for it
    const Row& row = s.CurrentRow();
    if (s.Source) s.Source->Delete(row.RowId);
    const std::size_t number = s.Order[static_cast<std::size_t>(s.Current)];
    s.Rows[number].Deleted = true;
    s.Order.erase(s.Order.begin() + s.Current);
    const int place = s.Current;
    s.Notify([&](RecordsetObserver& observer) { observer.RowRemoved(place); });
    s.Notify([](RecordsetObserver& observer) { observer.CurrentRowChanged(); });
}

std::int64_t Recordset::RowId() const { return state->CurrentRow().RowId; }

Bookmark Recordset::CurrentBookmark() const {
    static_cast<void>(state->CurrentRow());
    return state->Order[static_cast<std::size_t>(state->Current)];
}

void Recordset::GoTo(Bookmark bookmark) {
    Update();
    const auto at = std::find(state->Order.begin(), state->Order.end(), bookmark);
    if (at == state->Order.end()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    state->StandOn(static_cast<int>(at - state->Order.begin()));
}

Value Recordset::ValueAt(int row, std::string_view field) const {
    if (row < 0 || row >= state->Count()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    const std::size_t column = ColumnOf(state->Fields, field);
    if (row == state->Current && state->Pending == State::Edit::Changing && state->Assigned[column])
        return *state->Assigned[column];
    return state->Rows[state->Order[static_cast<std::size_t>(row)]].Values[column];
}

void Recordset::Save(const std::filesystem::path& file) const {
    if (!state->Open) throw RuntimeError(ErrorNumber::ObjectClosed);
    Rowset rowset;
    rowset.Fields = state->Fields;
    for (const std::size_t number : state->Order) rowset.Rows.push_back(state->Rows[number].Values);
    WriteFileAtomically(file, WriteRowset(rowset));
}

void Recordset::AddObserver(RecordsetObserver* observer) { state->Observers.push_back(observer); }

void Recordset::RemoveObserver(RecordsetObserver* observer) { std::erase(state->Observers, observer); }

} // namespace ornivane
