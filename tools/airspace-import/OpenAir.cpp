#include "airspace-import/OpenAir.h"

#include <algorithm>
#include <optional>

#include "airspace-import/Fields.h"
#include "airspace-import/Outline.h"
#include "airspace-import/Unusable.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr std::size_t LongestName = 60, LongestReason = 160; // bytes, in a report
constexpr int MostStrayLines = 20; // reported one by one: a file of another kind has nothing else

// The next line and its end, which may be any of CR LF, LF and CR.
std::string_view TakeLine(std::string_view& text) {
    const auto end = text.find_first_of("\r\n");
    const auto line = text.substr(0, end);
    if (end == std::string_view::npos) {
        text = {};
    } else {
        text.remove_prefix(text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
    }
    return line;
}

std::string_view WithoutComment(std::string_view text) { return TrimWhite(text.substr(0, text.find('*'))); }

// Foreign text in a report: bounded, cut between two characters, and nothing that steers a terminal.
std::string Shown(std::string_view text, std::size_t longest = LongestName) {
    std::string shown(FirstBytes(text, longest));
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const auto byte = static_cast<unsigned char>(shown[i]);
        // The second control block of Latin-1 steers as well; in UTF-8 it is C2 80 to C2 9F.
        const bool second = byte >= 0x80 && byte < 0xA0 && i > 0 && shown[i - 1] == '\xC2';
        if (second) shown[i - 1] = ' ';
        if (second || byte < 0x20 || byte == 0x7F) shown[i] = '?';
    }
    return shown;
}

// One airspace while its lines are read.
struct Draft {
    int Line = 0;
    std::string_view Class, Type, Name;
    std::optional<Limit> Low, High;
    std::vector<Element> Elements;
    std::optional<Refusal> Spoilt;

    // Files set the pens of a class by an AC record that has nothing else.
    bool IsOnlyPens() const { return Name.empty() && !Low && !High && Elements.empty() && !Spoilt; }
};

class Reader {
public:
    OpenAirContent Read(std::string_view text) {
        while (!text.empty()) {
            ++line;
            TakeRecord(TrimWhite(TakeLine(text)));
        }
        FinishDraft();
        if (strayLines > MostStrayLines)
            content.Refusals.push_back({line, "the end, after " +
                                                  std::to_string(strayLines - MostStrayLines) +
                                                  " more lines that are no records of airspaces"});
        std::ranges::stable_sort(content.Refusals, {}, &Refusal::Line);
        return std::move(content);
    }

private:
    void TakeRecord(std::string_view text) {
        if (text.empty() || text.front() == '*') return;
        if (text.size() > LongestLine) return Spoil("a line of " + std::to_string(text.size()) + " bytes");
        const auto letters = std::find_if(text.begin(), text.end(), [](char c) {
            return !((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'));
        });
        const auto length = static_cast<std::size_t>(letters - text.begin());
        const std::string keyword = Upper(text.substr(0, std::min<std::size_t>(length, 20)));
        const std::string_view body = TrimWhite(text.substr(length));
        try {
            Understand({keyword, body, text});
        } catch (const Unusable& reason) {
            Spoil(reason.what());
        }
    }

    struct Record {
        const std::string& Keyword;
        std::string_view Body, Text;
    };

    void Understand(const Record& record) {
        const auto& [keyword, body, text] = record;
        if (keyword == "AC")
            Begin(WithoutComment(body));
        else if (keyword == "TO" || keyword == "TC")
            BeginTerrain();
        else if (inTerrain || keyword == "SP" || keyword == "SB")
            return;
        else if (keyword == "V")
            TakeVariable(WithoutComment(body));
        else if (keyword.size() == 2 && keyword[0] == 'A')
            TakeAttribute(keyword, body);
        else if (keyword.size() == 2 && keyword[0] == 'D')
            TakeElement(keyword, WithoutComment(body));
        else
            Stray("no OpenAir record: " + Shown(text));
    }

    void Begin(std::string_view airspaceClass) {
        FinishDraft();
        inTerrain = false;
        clockwise = true;
        draft.emplace();
        draft->Line = line;
        draft->Class = airspaceClass;
    }

    void BeginTerrain() {
        FinishDraft();
        inTerrain = true;
        content.Refusals.push_back({line, "terrain is not taken"});
    }

    void TakeAttribute(const std::string& keyword, std::string_view body) {
        if (!draft) return Stray("a record before the first airspace");
        if (keyword == "AN") {
            if (!draft->Name.empty()) throw Unusable("a second name; the AC before it is missing");
            draft->Name = body;
        } else if (keyword == "AY") {
            draft->Type = WithoutComment(body);
        } else if (keyword == "AL") {
            SetLimit(draft->Low, body);
        } else if (keyword == "AH") {
            SetLimit(draft->High, body);
        }
    }

    static void SetLimit(std::optional<Limit>& limit, std::string_view body) {
        if (limit) throw Unusable("the same limit twice");
        limit = ParseLimit(WithoutComment(body));
    }

    void TakeVariable(std::string_view assignment) {
        const auto equals = assignment.find('=');
        const std::string name = Upper(assignment.substr(0, equals));
        const std::string_view value =
            equals == std::string_view::npos ? std::string_view() : TrimWhite(assignment.substr(equals + 1));
        if (name == "X") {
            // One that cannot be read must not leave the centre of another airspace in force.
            centre.reset();
            centre = ParsePosition(value);
        } else if (name == "D") {
            if (value != "+" && value != "-") throw Unusable("a direction that is neither + nor -");
            clockwise = value == "+";
        }
    }

    void TakeElement(const std::string& keyword, std::string_view body) {
        if (!draft) return Stray("a record before the first airspace");
        if (draft->Spoilt) return;
        if (draft->Elements.size() >= MostElements) throw Unusable("more than 10000 points");
        Element element;
        if (keyword == "DP") {
            element.Start = ParsePosition(body);
        } else if (keyword == "DC") {
            element.Is = Element::Kind::Circle;
            element.Start = Centre();
            element.Radius = ParseRadius(body);
        } else if (keyword == "DA" || keyword == "DB") {
            element.Is = Element::Kind::Arc;
            element.Centre = Centre();
            element.Clockwise = clockwise;
            const auto parts = Split(body, ",");
            if (keyword == "DA")
                ArcByAngles(element, parts);
            else
                ArcByEnds(element, parts);
        } else {
            throw Unusable("an element of an unknown kind: " + keyword);
        }
        draft->Elements.push_back(element);
    }

    static void ArcByAngles(Element& arc, const std::vector<std::string>& parts) {
        if (parts.size() != 3) throw Unusable("an arc without a radius and two angles");
        const double radius = ParseRadius(parts[0]);
        arc.Start = Destination(arc.Centre, ParseAngle(parts[1]), radius);
        arc.End = Destination(arc.Centre, ParseAngle(parts[2]), radius);
    }

    static void ArcByEnds(Element& arc, const std::vector<std::string>& parts) {
        if (parts.size() != 2) throw Unusable("an arc without two ends");
        arc.Start = ParsePosition(parts[0]);
        arc.End = ParsePosition(parts[1]);
    }

    const Position& Centre() const {
        if (!centre) throw Unusable("a circle or an arc without a centre");
        return *centre;
    }

    // Something that belongs to no airspace, or that an airspace is complete without.
    void Stray(const std::string& reason) {
        if (strayLines++ < MostStrayLines) content.Refusals.push_back({line, reason});
    }

    void Spoil(const std::string& reason) {
        if (!draft) return Stray(Shown(reason, LongestReason));
        if (!draft->Spoilt) draft->Spoilt = {line, reason};
    }

    void FinishDraft() {
        if (draft && !draft->IsOnlyPens()) {
            ++content.Records;
            try {
                if (draft->Spoilt) throw Unusable(draft->Spoilt->Reason);
                content.Airspaces.push_back(Finished());
            } catch (const Unusable& reason) {
                const std::string name = draft->Name.empty() ? "(no name)" : Shown(draft->Name);
                content.Refusals.push_back({draft->Spoilt ? draft->Spoilt->Line : draft->Line,
                                            name + ": " + Shown(reason.what(), LongestReason)});
            }
        }
        draft.reset();
    }

    Airspace Finished() const {
        if (!draft->Low || !draft->High) throw Unusable(draft->Low ? "no upper limit" : "no lower limit");
        const Limit &low = *draft->Low, &high = *draft->High;
        // Heights of different kinds cannot be compared: what is above depends on the ground and the
        // pressure.
        if (high.Feet == 0 || low.Feet == Limit::Unlimited || (low.Of == high.Of && low.Feet >= high.Feet))
            throw Unusable("an upper limit that is not above the lower one");
        return {Shown(draft->Name),          draft->Line, AspTypeFor(draft->Class, draft->Type), low, high,
                OutlineRows(draft->Elements)};
    }

    OpenAirContent content;
    std::optional<Draft> draft;
    std::optional<Position> centre; // stays in force until the next one, also for other airspaces
    bool clockwise = true;          // again at each airspace
    bool inTerrain = false;
    int line = 0;
    int strayLines = 0;
};

} // namespace

OpenAirContent ReadOpenAir(std::string_view bytes) {
    // Text of two bytes a character has a zero in every second one; single zeros are damage of their line.
    if (std::count(bytes.begin(), bytes.end(), '\0') > static_cast<std::ptrdiff_t>(bytes.size() / 8)) {
        OpenAirContent none;
        none.Refusals.push_back({1, "the file is no text of single bytes or UTF-8"});
        return none;
    }
    const std::string text = DecodeText(bytes);
    return Reader().Read(text);
}

} // namespace ornivane
