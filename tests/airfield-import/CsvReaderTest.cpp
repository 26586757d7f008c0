#include "airfield-import/CsvReader.h"

#include <random>

#include <gtest/gtest.h>

#include "base/Strings.h"

using ornivane::airfields::CsvReader;

namespace {

// "line:field|field" or "line!fault" of each record.
std::vector<std::string> ReadAll(std::string_view text) {
    std::vector<std::string> records;
    for (CsvReader reader(text); reader.Next();) {
        std::string record = std::to_string(reader.Line()) + (reader.Fault().empty() ? ":" : "!");
        if (!reader.Fault().empty()) record += reader.Fault();
        for (std::size_t i = 0; reader.Fault().empty() && i < reader.Fields().size(); ++i)
            record += (i == 0 ? "" : "|") + reader.Fields()[i];
        records.push_back(record);
    }
    return records;
}

} // namespace

TEST(CsvReader, ReadsQuotesLineEndsAndEncodings) {
    using Records = std::vector<std::string>;
    const std::pair<std::string, Records> cases[] = {
        {"", {}},
        {"\r\n\n", {}},
        {"a,b\r\n1,2\r\n", {"1:a|b", "2:1|2"}},
        {"\xEF\xBB\xBF\"a\",b\n\n,", {"1:a|b", "3:|"}},
        {"\"x, \"\"y\"\"\",\"\"\nz,", {"1:x, \"y\"|", "2:z|"}},
        {"\"two\r\nlines\",b\nnext,c", {"1:two\r\nlines|b", "3:next|c"}},
        {"a\rb\r", {"1:a\rb"}},
        {"K\xF6ln,K\xC3\xB6ln", {"1:Köln|Köln"}},
    };
    for (const auto& [text, records] : cases) EXPECT_EQ(ReadAll(text), records) << text;
}

TEST(CsvReader, LosesOnlyTheLineThatIsDamaged) {
    using Records = std::vector<std::string>;
    const std::string endless(CsvReader::LongestRecord + 10, 'x');
    const std::pair<std::string, Records> cases[] = {
        {"1,\"open\n2,b\n3,c\n", {"1!a quote that is not closed", "2:2|b", "3:3|c"}},
        {"1,\"open\n2,\"b\"\n3,c", {"1!text after a closing quote", "2:2|b", "3:3|c"}},
        {"1,a\"b\n2", {"1!a quote inside a field without quotes", "2:2"}},
        {std::string("1,a\0b\n2", 7), {"1!a NUL byte", "2:2"}},
        {endless + "\n2", {"1!the record is too long", "2:2"}},
        {"\"" + endless + "\n2", {"1!the record is too long, or a quote is not closed", "2:2"}},
    };
    for (const auto& [text, records] : cases) EXPECT_EQ(ReadAll(text), records) << text.substr(0, 40);
}

TEST(CsvReader, EndsAndCountsLinesWhateverTheBytes) {
    std::mt19937 random(7);
    constexpr std::string_view Letters("\"\",,\n\n\r\0a\xC3\xB6", 11);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto length = random() % 60; length > 0; --length) text += Letters[random() % Letters.size()];
        std::int64_t last = 0;
        const std::string copy(text.begin(), text.end());
        for (CsvReader reader(copy); reader.Next(); last = reader.Line()) {
            ASSERT_GT(reader.Line(), last);
            if (!reader.Fault().empty()) continue;
            for (const auto& field : reader.Fields()) ASSERT_TRUE(ornivane::IsValidUtf8(field));
        }
        ASSERT_LE(last, 61);
    }
}
