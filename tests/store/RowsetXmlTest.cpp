#include "store/RowsetXml.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {
namespace {

constexpr const char* Foreign = R"(<?xml version="1.0"?>
<xml xmlns:x="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882" xmlns:t='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'
  xmlns:r="urn:schemas-microsoft-com:rowset" xmlns:row="#RowsetSchema">
 <x:Schema id="RowsetSchema"><x:ElementType name="row" content="eltOnly">
  <x:AttributeType name="c2" r:name="Höhe über NN" r:number="3"><x:datatype t:type="r8"/></x:AttributeType>
  <x:AttributeType name="Nummer" r:number="1"><x:datatype t:type="i4" r:maybenull="false"/></x:AttributeType>
  <x:AttributeType name="Name" r:number="2" r:nullable="true"><x:datatype t:type="string" t:maxLength="4"/></x:AttributeType>
  <x:AttributeType name="Aktiv" r:number="4" t:type="boolean"/>
  <x:extends type="r:rowbase"/></x:ElementType></x:Schema>
 <r:data>
  <row:row Nummer="1" Name="O'Hara &amp; &#252;" c2="-8.25" Aktiv="True" unknown="1"/>
  <r:insert><row:row Nummer="2" Aktiv="-1" c2="1" r:forcenull="c2 Name"/></r:insert>
  <r:delete><row:row Nummer="9"/></r:delete>
  <r:update><r:original><row:row Nummer="3" Name="old" c2="7"/></r:original><row:row Name="new"/></r:update>
 </r:data></xml>)";

std::string Flat(const Rowset& rowset) {
    std::string text;
    for (const auto& row : rowset.Rows) {
        for (const Value& value : row) text += (value.IsNull() ? "-" : value.Text()) + "|";
        text += "/";
    }
    return text;
}

std::string Utf16(std::string_view ascii, bool little) {
    std::string out = little ? "\xFF\xFE" : "\xFE\xFF";
    for (const char c : ascii) out += little ? std::string{c, '\0'} : std::string{'\0', c};
    return out;
}

TEST(RowsetXml, ReadsWhatOthersWriteWithTheirPrefixesAliasesAndBlocks) {
    const Rowset rowset = ReadRowset(Foreign);
    ASSERT_EQ(rowset.Fields.size(), 4u);
    EXPECT_EQ(rowset.Fields[0], (FieldInfo{"Nummer", FieldType::Integer, 0, false}));
    EXPECT_EQ(rowset.Fields[1], (FieldInfo{"Name", FieldType::Text, 4, true}));
    EXPECT_EQ(rowset.Fields[2].Name, "Höhe über NN");
    EXPECT_EQ(Flat(rowset), "1|O'Hara & ü|-8.25|True|/2|-|-|True|/3|new|7|-|/");
}

TEST(RowsetXml, ReadsUtf16AndOldEncodings) {
    const std::string plain = WriteRowset({{{"Name", FieldType::Text, 0, true}}, {{"Anna"}, {Value()}}});
    EXPECT_EQ(Flat(ReadRowset(Utf16(plain, true))), "Anna|/-|/");
    EXPECT_EQ(Flat(ReadRowset(Utf16(plain, false))), "Anna|/-|/");
    std::string old = plain;
    old.replace(old.find("Anna"), 4, "K\xF6ln");
    EXPECT_EQ(Flat(ReadRowset(old)), "Köln|/-|/");
    for (const std::string& text : {old, DecodeText(old)})
        EXPECT_EQ(Flat(ReadRowset("<?xml version='1.0' encoding='iso-8859-1'?>" + text)), "Köln|/-|/");
    // Half a surrogate pair is no character: it must not spoil what is saved later.
    std::string half = plain;
    half.replace(half.find("Anna"), 4, "ü&#xD800;");
    const Rowset kept = ReadRowset(half);
    EXPECT_EQ(Flat(ReadRowset(WriteRowset(kept))), Flat(kept));
}

TEST(RowsetXml, ReadsBackExactlyWhatItWrote) {
    const Rowset rowset{{{"Nummer", FieldType::Double, 0, true},
                         {"Name mit Blank", FieldType::Text, 0, true},
                         {"Höhe", FieldType::Integer, 0, false},
                         {"Aktiv", FieldType::Boolean, 0, true},
                         {"c1", FieldType::Text, 0, true}},
                        {{0.1 + 0.2, "\"'<>&\r\n\t 😀", 7, true, "another"},
                         {-1e-300, std::string(400, 'x'), -2147483648.0, false, Value()},
                         {Value(), "", 0, Value(), " "}}};
    const std::string xml = WriteRowset(rowset);
    const Rowset read = ReadRowset(xml);
    EXPECT_EQ(read.Rows[0][0], rowset.Rows[0][0]);
    EXPECT_EQ(Flat(read), Flat(rowset));
    EXPECT_NE(xml.find("xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'"), std::string::npos);
    EXPECT_NE(xml.find("rs:name='Name mit Blank'"), std::string::npos);
    EXPECT_EQ(xml.find("Null"), std::string::npos);
}

TEST(RowsetXml, LeavesOutWhatXmlCannotHold) {
    const std::string xml =
        WriteRowset({{{"Name", FieldType::Text, 0, true}}, {{"K\x01\x1F\tö\xEF\xBF\xBF.ln"}}});
    EXPECT_NE(xml.find("'K&#09;ö.ln'"), std::string::npos) << xml;
    std::string foreign(Foreign);
    foreign.replace(foreign.find("O'Hara"), 6, "O&#1;Hara&#xFFFE;");
    EXPECT_EQ(ReadRowset(foreign).Rows[0][1], Value("OHara & ü"));
}

TEST(RowsetXml, RefusesWhatIsNone) {
    std::string bomb = "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;\">]><xml>&b;</xml>";
    std::string deep;
    for (int i = 0; i < 200000; ++i) deep += "<a>";
    std::string nested(Foreign); // read or refused, but never followed to the end of the stack
    std::string blocks, ends;
    for (int i = 0; i < 200000; ++i) {
        blocks += "<r:insert>";
        ends += "</r:insert>";
    }
    nested.replace(nested.find("<r:insert>"), 0, blocks + ends);
    EXPECT_EQ(ReadRowset(nested).Rows.size(), 3u);
    std::string wide(Foreign), many(Foreign), rows;
    for (int i = 0; i < 999; ++i) rows += "<x:AttributeType name='f" + std::to_string(i) + "'/>";
    wide.replace(wide.find("<x:extends"), 0, rows);
    rows.clear();
    for (int i = 0; i < 1000001; ++i) rows += "<row:row/>";
    many.replace(many.find("<r:insert>"), 0, rows);
    std::string badNumber(Foreign);
    badNumber.replace(badNumber.find("-8.25"), 5, "-8,25");
    for (const std::string& bytes :
         {std::string(), std::string("\0\0\0", 3), std::string("Name;Lat"), std::string("<xml/>"), bomb, deep,
          std::string(Foreign).substr(0, 900), badNumber, wide, many})
        EXPECT_THROW(ReadRowset(bytes), RuntimeError) << bytes.substr(0, 40);
}

} // namespace
} // namespace ornivane
