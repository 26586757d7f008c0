#include "store/RowsetXml.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <sstream>

#include <pugixml.hpp>

#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "base/Xml.h"
#include "store/RecordsetRows.h"

namespace ornivane {

namespace {

constexpr const char* SchemaSpace = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
constexpr const char* TypeSpace = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
constexpr const char* RowsetSpace = "urn:schemas-microsoft-com:rowset";
constexpr const char* RowSpace = "#RowsetSchema";
constexpr int LongText = 536870910; // what ADO gives a text without a limit
constexpr int ShortText = 255;

// Far beyond what is ever saved, so that no file from elsewhere can fill the memory or stop the program.
constexpr std::size_t LargestText = 32u << 20; // bytes
constexpr std::size_t MostFields = 1000;
constexpr std::size_t MostValues = 4000000; // rows times fields
constexpr int MostDeclarations = 64;        // attributes of an element among which its namespaces stand

[[noreturn]] void Refuse(const std::string& reason) {
    throw RuntimeError(ErrorNumber::TypeMismatch, "no persisted recordset: " + reason);
}

// ---- names with a namespace

std::string_view LocalName(std::string_view name) { return name.substr(name.find(':') + 1); }

std::string_view SpaceOf(pugi::xml_node node, std::string_view name, bool isAttribute) {
    const auto colon = name.find(':');
    if (colon == std::string_view::npos && isAttribute) return {};
    const std::string declaration =
        colon == std::string_view::npos ? "xmlns" : "xmlns:" + std::string(name.substr(0, colon));
    for (; node; node = node.parent()) {
        int left = MostDeclarations;
        for (auto attribute = node.first_attribute(); attribute && left > 0; --left) {
            if (declaration == attribute.name()) return attribute.value();
            attribute = attribute.next_attribute();
        }
    }
    return {};
}

bool Is(pugi::xml_node node, const char* space, std::string_view local) {
    const std::string_view name = node.name();
    return LocalName(name) == local && SpaceOf(node, name, false) == space;
}

pugi::xml_node Child(pugi::xml_node parent, const char* space, std::string_view local) {
    for (const auto& node : parent.children())
        if (Is(node, space, local)) return node;
    return {};
}

pugi::xml_attribute Attribute(pugi::xml_node node, const char* space, std::string_view local) {
    for (const auto& attribute : node.attributes())
        if (LocalName(attribute.name()) == local && SpaceOf(node, attribute.name(), true) == space)
            return attribute;
    return {};
}

// ---- reading

FieldType TypeOf(std::string_view type) {
    static const std::map<std::string_view, FieldType> types{
        {"int", FieldType::Integer},   {"i1", FieldType::Integer},        {"i2", FieldType::Integer},
        {"i4", FieldType::Integer},    {"i8", FieldType::Integer},        {"ui1", FieldType::Integer},
        {"ui2", FieldType::Integer},   {"ui4", FieldType::Integer},       {"ui8", FieldType::Integer},
        {"r4", FieldType::Double},     {"r8", FieldType::Double},         {"float", FieldType::Double},
        {"number", FieldType::Double}, {"fixed.14.4", FieldType::Double}, {"boolean", FieldType::Boolean}};
    if (const auto found = types.find(type); found != types.end()) return found->second;
    return type.starts_with("date") ? FieldType::Date : FieldType::Text;
}

class Reader {
public:
    Rowset Read(std::string_view xml) {
        if (xml.size() > LargestText) Refuse("the file is too large");
        pugi::xml_document document;
        const pugi::xml_parse_result result = Parse(document, xml);
        if (!result) Refuse(result.description());
        const pugi::xml_node root = document.document_element();
        ReadSchema(Child(root, SchemaSpace, "Schema"));
        const pugi::xml_node data = Child(root, RowsetSpace, "data");
        if (!data) Refuse("no data");
        ReadRows(data);
        return std::move(rowset);
    }

private:
    static bool IsUtf16(std::string_view xml) {
        return xml.size() >= 2 && (xml.substr(0, 2) == "\xFF\xFE" || xml.substr(0, 2) == "\xFE\xFF" ||
                                   xml[0] == '\0' || xml[1] == '\0');
    }

    // What an XML declaration says of the encoding does not count: a file that was converted keeps it.
    static pugi::xml_parse_result Parse(pugi::xml_document& document, std::string_view xml) {
        if (IsUtf16(xml)) return document.load_buffer(xml.data(), xml.size());
        const std::string text = DecodeText(xml);
        return document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    }

    void ReadSchema(pugi::xml_node schema) {
        const pugi::xml_node row = Child(schema, SchemaSpace, "ElementType");
        if (!row) Refuse("no schema");
        std::vector<std::pair<int, std::pair<std::string, FieldInfo>>> found;
        for (const auto& node : row.children()) {
            if (!Is(node, SchemaSpace, "AttributeType")) continue;
            if (found.size() == MostFields) Refuse("too many fields");
            const std::string attribute = node.attribute("name").value();
            const auto alias = Attribute(node, RowsetSpace, "name");
            const int place =
                Attribute(node, RowsetSpace, "number").as_int(static_cast<int>(found.size()) + 1);
            found.push_back({place, {attribute, FieldOf(node, alias ? alias.value() : attribute)}});
        }
        std::ranges::stable_sort(found, {}, [](const auto& each) { return each.first; });
        for (auto& [place, field] : found) {
            columns[field.first] = rowset.Fields.size();
            rowset.Fields.push_back(std::move(field.second));
        }
        if (rowset.Fields.empty()) Refuse("no fields");
    }

    static FieldInfo FieldOf(pugi::xml_node node, std::string name) {
        pugi::xml_node type = Child(node, SchemaSpace, "datatype");
        if (!type) type = node; // the type may stand on the field itself
        FieldInfo field;
        field.Name = std::move(name);
        field.Type = TypeOf(Attribute(type, TypeSpace, "type").value());
        const int length = Attribute(type, TypeSpace, "maxLength").as_int();
        if (field.Type == FieldType::Text && length > 0 && length < LongText) field.Size = length;
        field.Nullable = Attribute(type, RowsetSpace, "maybenull").as_bool(true);
        return field;
    }

    void ReadRows(pugi::xml_node data) {
        for (const auto& node : data.children()) {
            if (Is(node, RowSpace, "row"))
                Add(RowOf(node, std::vector<Value>(rowset.Fields.size())));
            else if (Is(node, RowsetSpace, "insert"))
                ReadInserted(node);
            else if (Is(node, RowsetSpace, "update"))
                ReadUpdate(node);
            // rs:delete holds rows that are gone
        }
    }

    void ReadInserted(pugi::xml_node insert) {
        for (const auto& node : insert.children())
            if (Is(node, RowSpace, "row")) Add(RowOf(node, std::vector<Value>(rowset.Fields.size())));
    }

    // The row as it was and, beside it, the attributes that changed.
    void ReadUpdate(pugi::xml_node update) {
        std::vector<Value> row(rowset.Fields.size());
        if (const auto original = Child(Child(update, RowsetSpace, "original"), RowSpace, "row"))
            row = RowOf(original, std::move(row));
        if (const auto changed = Child(update, RowSpace, "row")) row = RowOf(changed, std::move(row));
        Add(std::move(row));
    }

    void Add(std::vector<Value> row) {
        if ((rowset.Rows.size() + 1) * rowset.Fields.size() > MostValues) Refuse("too many rows");
        rowset.Rows.push_back(std::move(row));
    }

    std::vector<Value> RowOf(pugi::xml_node node, std::vector<Value> row) const {
        for (const auto& attribute : node.attributes())
            if (const auto column = columns.find(attribute.name()); column != columns.end())
                row[column->second] = ValueOf(rowset.Fields[column->second], attribute.value());
        // In a change that was not yet in its source ADO names the fields that became Null.
        if (const auto nulls = Attribute(node, RowsetSpace, "forcenull"))
            for (const std::string& name : Split(nulls.value(), " "))
                if (const auto column = columns.find(name); column != columns.end()) row[column->second] = {};
        return row;
    }

    static Value ValueOf(FieldInfo field, const char* text) {
        field.Size = 0; // a text that is there is taken whole
        Value value;
        if (ErrorOf([&] { value = ConvertFor(field, Value(XmlText(text))); }))
            Refuse(field.Name + ": " + std::string(text).substr(0, 40));
        return value;
    }

    Rowset rowset;
    std::map<std::string, std::size_t, std::less<>> columns; // by the attribute that carries them
};

// ---- writing

bool IsXmlName(std::string_view name) {
    const auto isStart = [](unsigned char c) {
        return c >= 0x80 || c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    };
    const auto isInner = [&](unsigned char c) {
        return isStart(c) || c == '-' || c == '.' || (c >= '0' && c <= '9');
    };
    return !name.empty() && isStart(static_cast<unsigned char>(name.front())) &&
           std::all_of(name.begin(), name.end(), isInner);
}

// Shortest text that reads back as the same number.
std::string ExactNumber(double number) {
    if (!(number - number == 0)) throw RuntimeError(ErrorNumber::Overflow);
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, number).ptr);
}

std::string TextOf(const Value& value) {
    const auto* number = std::get_if<double>(&value.Raw());
    return number ? ExactNumber(*number) : XmlText(value.Text());
}

void WriteType(pugi::xml_node node, const FieldInfo& field, std::size_t longest) {
    struct TypeForm {
        const char* Type;
        int Length, Precision;
    };
    static const std::map<FieldType, TypeForm> forms{{FieldType::Integer, {"int", 4, 10}},
                                                     {FieldType::Double, {"float", 8, 15}},
                                                     {FieldType::Boolean, {"boolean", 2, 0}},
                                                     {FieldType::Date, {"date", 10, 0}},
                                                     {FieldType::Text, {"string", 0, 0}}};
    const TypeForm& form = forms.at(field.Type);
    const bool isText = field.Type == FieldType::Text;
    const int limit = field.Size > 0 ? field.Size : longest > ShortText ? LongText : ShortText;
    pugi::xml_node type = node.append_child("s:datatype");
    type.append_attribute("dt:type") = form.Type;
    type.append_attribute("dt:maxLength") = isText ? limit : form.Length;
    if (form.Precision > 0) type.append_attribute("rs:precision") = form.Precision;
    if (isText && limit == LongText) type.append_attribute("rs:long") = "true";
    if (!isText) type.append_attribute("rs:fixedlength") = "true";
    if (!field.Nullable) type.append_attribute("rs:maybenull") = "false";
}

// The fields' own names where XML allows them.
std::vector<std::string> AttributeNamesOf(const std::vector<FieldInfo>& fields) {
    std::vector<std::string> names(fields.size());
    std::set<std::string> used;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (IsXmlName(fields[i].Name) && used.insert(fields[i].Name).second) names[i] = fields[i].Name;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!names[i].empty()) continue;
        names[i] = "c" + std::to_string(i);
        while (!used.insert(names[i]).second) names[i] += '_';
    }
    return names;
}

std::vector<std::string> WriteSchema(pugi::xml_node root, const Rowset& rowset) {
    pugi::xml_node schema = root.append_child("s:Schema");
    schema.append_attribute("id") = "RowsetSchema";
    pugi::xml_node row = schema.append_child("s:ElementType");
    row.append_attribute("name") = "row";
    row.append_attribute("content") = "eltOnly";
    row.append_attribute("rs:updatable") = "true";
    std::vector<std::string> names = AttributeNamesOf(rowset.Fields);
    for (std::size_t i = 0; i < rowset.Fields.size(); ++i) {
        const FieldInfo& field = rowset.Fields[i];
        pugi::xml_node node = row.append_child("s:AttributeType");
        node.append_attribute("name") = names[i].c_str();
        if (names[i] != field.Name) node.append_attribute("rs:name") = field.Name.c_str();
        node.append_attribute("rs:number") = static_cast<int>(i) + 1;
        if (field.Nullable) node.append_attribute("rs:nullable") = "true";
        node.append_attribute("rs:write") = "true";
        std::size_t longest = 0;
        for (const auto& values : rowset.Rows)
            if (const auto* text = std::get_if<std::string>(&values[i].Raw()))
                longest = std::max(longest, CharacterCount(*text));
        WriteType(node, field, longest);
    }
    row.append_child("s:extends").append_attribute("type") = "rs:rowbase";
    return names;
}

} // namespace

std::string WriteRowset(const Rowset& rowset) {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("xml");
    root.append_attribute("xmlns:s") = SchemaSpace;
    root.append_attribute("xmlns:dt") = TypeSpace;
    root.append_attribute("xmlns:rs") = RowsetSpace;
    root.append_attribute("xmlns:z") = RowSpace;
    const std::vector<std::string> names = WriteSchema(root, rowset);
    pugi::xml_node data = root.append_child("rs:data");
    for (const auto& values : rowset.Rows) {
        pugi::xml_node row = data.append_child("z:row");
        for (std::size_t i = 0; i < names.size(); ++i)
            if (!values[i].IsNull()) row.append_attribute(names[i].c_str()) = TextOf(values[i]).c_str();
    }
    std::ostringstream stream;
    document.save(stream, "\t",
                  pugi::format_default | pugi::format_no_declaration | pugi::format_attribute_single_quote);
    return stream.str();
}

Rowset ReadRowset(std::string_view xml) { return Reader().Read(xml); }

} // namespace ornivane
