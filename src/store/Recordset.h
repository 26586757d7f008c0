#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/Value.h"

namespace ornivane {

class Connection;

enum class FieldType { Integer, Double, Text, Boolean, Date };

struct FieldInfo {
    std::string Name;
    FieldType Type = FieldType::Text;
    int Size = 0; // characters of a text; 0 is unlimited
    bool Nullable = true;
    bool operator==(const FieldInfo&) const = default;
};

// What Find looks for. Texts compare by the collation of the stores, numbers as numbers; Null matches
// nothing.
enum class Comparison { Equal, GreaterOrEqual };

// A row of a recordset, kept over sorting, until the next Requery.
using Bookmark = std::size_t;

// What observers are told. Row counts are places in the present order, from 0.
class RecordsetObserver {
public:
    virtual ~RecordsetObserver() = default;
    virtual void RowsReset() {} // all rows anew: open, requery, sort, close
    virtual void RowInserted(int /*row*/) {}
    virtual void RowRemoved(int /*row*/) {}
    virtual void RowChanged(int /*row*/) {}
    virtual void CurrentRowChanged() {}
};

// A client-side, updatable snapshot of rows with a current row. The current row is the selection.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    // "SELECT fields FROM one table [WHERE ...] [ORDER BY ...]" with values bound to its ?. Stands on the
    // first row. An open recordset is closed first. RuntimeError StoreError, ObjectClosed.
    void Open(Connection& connection, const std::string& sql, std::vector<Value> parameters = {});
    // A persisted recordset (rowset XML). RuntimeError FileNotFound, TypeMismatch (with the reason) when it
    // is none; the recordset stays as it was then.
    void OpenFile(const std::filesystem::path& file);
    // Detached: fields first, then Open without a source.
    void AppendField(const FieldInfo& field);
    void OpenDetached();
    bool IsOpen() const;
    void Close(); // a pending row is dropped
    // Executes the query again; stands on the first row.
    void Requery();

    const std::vector<FieldInfo>& Fields() const;
    int RecordCount() const;
    int AbsolutePosition() const; // from 1 in the present order; -1 without rows, -3 at Eof, -2 at Bof
    void SetAbsolutePosition(int position);
    bool Eof() const; // also true without rows
    bool Bof() const; // also true without rows
    void MoveFirst(); // no error without rows
    void MoveLast();
    void MoveNext();     // past the last row is Eof; RuntimeError NoCurrentRecord beyond that
    void MovePrevious(); // before the first row is Bof; RuntimeError NoCurrentRecord beyond that

    // Forwards from the current row, itself included. False, and at Eof, when nothing matches.
    bool Find(std::string_view field, Comparison comparison, const Value& value);
    // Reorders the open recordset; ties keep their order. Stands on the first row.
    void Sort(std::string_view field);

    // RuntimeError NoCurrentRecord without a current row, FieldNotFound.
    Value Get(std::string_view field) const;
    double Number(std::string_view field) const { return Get(field).Number(); }
    std::string Text(std::string_view field) const { return Get(field).Text(); }
    std::string TextOrEmpty(std::string_view field) const { return Get(field).TextOrEmpty(); }
    // Kept aside until Update or a move to another row writes it. RuntimeError TypeMismatch, Overflow (text
    // longer than the field's size).
    void Set(std::string_view field, const Value& value);
    // A new row, current from here on; it joins the rows at their end with Update.
    void AddNew();
    // Writes what was set; the store's own values (a counter) can be read afterwards. When the store refuses,
    // the row stays as it was before and the error passes on.
    void Update();
    void CancelUpdate();
    // The current row only. Then the next row is current, or Eof. A row that is only being added is dropped.
    void Delete();

    // Identity of the current row in its table of the store; 0 in a detached recordset.
    std::int64_t RowId() const;
    Bookmark CurrentBookmark() const;
    void GoTo(Bookmark bookmark); // RuntimeError NoCurrentRecord when that row is gone
    // The value of a field in the row at a place (from 0), for grids: does not move.
    Value ValueAt(int row, std::string_view field) const;

    // Rowset XML, to a temporary name that is then renamed.
    void Save(const std::filesystem::path& file) const;

    void AddObserver(RecordsetObserver* observer);
    void RemoveObserver(RecordsetObserver* observer);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace ornivane
