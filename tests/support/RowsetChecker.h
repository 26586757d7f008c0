#pragma once

#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace ornivane {

// What ADO documents of a persisted rowset, checked with a reader of its own: the four namespaces, the schema
// of one ElementType "row" that ends with s:extends, the documented attributes and types with their sizes,
// and rows whose attributes are the schema's fields with values of their types. Rows that were changed but
// not yet saved (rs:insert and so on) do not belong into a file that is passed on.
class RowsetChecker {
public:
    struct Field {
        QString Name, Type;
        int Length = 0;
        bool MayBeNull = true;
    };
    std::vector<std::string> Slips;
    std::vector<Field> Fields;
    int Rows = 0;

    explicit RowsetChecker(const QByteArray& bytes) : xml(bytes) {
        Expect(bytes.startsWith("<xml"), "neither mark nor declaration nor document type");
        Expect(xml.readNextStartElement() && Is("", "xml"), "the root is xml");
        std::map<QString, QString> spaces;
        for (const auto& declared : xml.namespaceDeclarations())
            spaces[declared.prefix().toString()] = declared.namespaceUri().toString();
        Expect(spaces == std::map<QString, QString>{{"s", S}, {"dt", Dt}, {"rs", Rs}, {"z", Z}},
               "namespaces");
        if (Next(S, "Schema")) Schema();
        if (Next(Rs, "data")) Data();
        Expect(!xml.readNextStartElement(), "nothing behind the data");
        while (!xml.atEnd()) xml.readNext();
        Expect(!xml.hasError(), "well formed: " + xml.errorString());
    }

private:
    static constexpr const char* S = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
    static constexpr const char* Dt = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
    static constexpr const char* Rs = "urn:schemas-microsoft-com:rowset";
    static constexpr const char* Z = "#RowsetSchema";

    void Expect(bool fine, const QString& rule) {
        if (!fine) Slips.push_back(rule.toStdString() + " (line " + std::to_string(xml.lineNumber()) + ")");
    }
    bool Is(const char* space, const char* name) const {
        return xml.name() == QLatin1String(name) && xml.namespaceUri() == QLatin1String(space);
    }
    bool Next(const char* space, const char* name) {
        const bool there = xml.readNextStartElement() && Is(space, name);
        Expect(there, QString("%1 expected").arg(name));
        return there;
    }
    QString Of(const char* space, const char* name) const {
        return xml.attributes().value(space, QLatin1String(name)).toString();
    }
    // Every attribute one of those documented ("rs:name"), true and false spelled so.
    void OnlyAttributes(const QSet<QString>& documented, const QSet<QString>& flags) {
        for (const auto& attribute : xml.attributes()) {
            const QString name = attribute.qualifiedName().toString();
            Expect(documented.contains(name) || flags.contains(name), "no attribute " + name);
            if (flags.contains(name))
                Expect(attribute.value() == u"true" || attribute.value() == u"false", name + " is a flag");
        }
    }

    void Schema() {
        Expect(Of("", "id") == "RowsetSchema", "the schema's id");
        if (!Next(S, "ElementType")) return;
        Expect(Of("", "name") == "row" && Of("", "content") == "eltOnly", "the element is row, eltOnly");
        OnlyAttributes({"name", "content", "rs:CommandTimeout"}, {"rs:updatable"});
        bool extends = false;
        while (xml.readNextStartElement()) {
            Expect(!extends, "s:extends is the last");
            extends = Is(S, "extends");
            if (extends) {
                Expect(Of("", "type") == "rs:rowbase", "it extends rs:rowbase");
                xml.skipCurrentElement();
            } else if (Is(S, "AttributeType")) {
                AttributeType();
            } else {
                Expect(false, "no " + xml.name().toString() + " in a row");
                xml.skipCurrentElement();
            }
        }
        Expect(extends, "s:extends is there");
        Expect(!xml.readNextStartElement(), "one row type");
    }

    void AttributeType() {
        OnlyAttributes({"name", "rs:name", "rs:number", "rs:basecatalog", "rs:baseschema", "rs:basetable",
                        "rs:basecolumn"},
                       {"rs:nullable", "rs:write", "rs:writeunknown", "rs:maydefer", "rs:keycolumn",
                        "rs:autoincrement", "rs:hidden", "rs:rowver"});
        Field field{Of("", "name"), {}, 0, true};
        Expect(QRegularExpression("^[\\pL_][\\pL\\pN_.-]*$").match(field.Name).hasMatch(), "an XML name");
        for (const Field& other : Fields) Expect(other.Name != field.Name, "each name once");
        Expect(Of(Rs, "number") == QString::number(Fields.size() + 1), "numbered in order");
        const bool nullable = Of(Rs, "nullable") == "true";
        if (Next(S, "datatype")) Datatype(field);
        Expect(nullable == field.MayBeNull, "nullable and maybenull agree");
        Fields.push_back(field);
        Expect(!xml.readNextStartElement(), "one datatype a field");
    }

    void Datatype(Field& field) {
        struct Form {
            int Length;
            QString Precision;
        };
        static const std::map<QString, Form> fixed{
            {"int", {4, "10"}}, {"float", {8, "15"}}, {"boolean", {2, ""}}, {"date", {10, ""}}};
        OnlyAttributes({"dt:type", "dt:maxLength", "rs:dbtype", "rs:precision", "rs:scale"},
                       {"rs:fixedlength", "rs:long", "rs:maybenull"});
        field.Type = Of(Dt, "type");
        field.Length = Of(Dt, "maxLength").toInt();
        field.MayBeNull = Of(Rs, "maybenull") != "false";
        const auto form = fixed.find(field.Type);
        if (form != fixed.end()) {
            Expect(field.Length == form->second.Length, "the length of " + field.Type);
            Expect(Of(Rs, "precision") == form->second.Precision, "the precision of " + field.Type);
            Expect(Of(Rs, "fixedlength") == "true" && Of(Rs, "long").isEmpty(), field.Type + " is fixed");
        } else {
            Expect(field.Type == "string", "a type of ADO's: " + field.Type);
            Expect(Of(Rs, "long") == (field.Length > 255 ? "true" : ""), "a text above 255 is long");
            Expect(field.Length > 0 && Of(Rs, "fixedlength").isEmpty(), "a text has a limit");
        }
        xml.skipCurrentElement();
    }

    void Data() {
        while (xml.readNextStartElement()) {
            Expect(Is(Z, "row"), "rows only");
            ++Rows;
            for (const auto& attribute : xml.attributes()) {
                const auto field = std::find_if(Fields.begin(), Fields.end(), [&](const Field& candidate) {
                    return candidate.Name == attribute.qualifiedName();
                });
                Expect(field != Fields.end(),
                       "a field of the schema: " + attribute.qualifiedName().toString());
                if (field != Fields.end()) Value(*field, attribute.value().toString());
            }
            for (const Field& field : Fields)
                Expect(field.MayBeNull || xml.attributes().hasAttribute(field.Name),
                       field.Name + " is there");
            Expect(xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement).isEmpty(),
                   "rows are empty");
        }
    }

    void Value(const Field& field, const QString& value) {
        static const std::map<QString, QString> forms{{"int", "^-?[0-9]{1,10}$"},
                                                      {"float", "^-?[0-9]+(\\.[0-9]+)?([eE][-+]?[0-9]+)?$"},
                                                      {"boolean", "^(True|False)$"},
                                                      {"date", "^[0-9]{4}-[0-9]{2}-[0-9]{2}$"}};
        const auto form = forms.find(field.Type);
        if (form != forms.end())
            Expect(QRegularExpression(form->second).match(value).hasMatch(), field.Type + ": " + value);
        else
            Expect(value.size() <= field.Length, "a text within its limit: " + value);
    }

    QXmlStreamReader xml;
};

} // namespace ornivane
