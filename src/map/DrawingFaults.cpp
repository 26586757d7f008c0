#include "map/DrawingFaults.h"

#include "map/AirfieldBook.h"

namespace ornivane {

namespace {

// In the order of Layer.
constexpr Bilingual Missing[] = {
    {"Die Karte ist nicht zu Ende gezeichnet, das Flugzeug fehlt: ",
     "The chart is not drawn to its end, the aircraft is missing: "},
    {"Die Karte ist nicht gezeichnet: ", "The chart is not drawn: "},
    {"Nicht alle Lufträume sind auf der Karte: ", "Not all airspace is on the chart: "},
    {"Die Strecke ist nicht ganz gezeichnet: ", "The route is not drawn in full: "},
    {"Nicht alle Wegpunkte sind gezeichnet: ", "Not all waypoints are drawn: "}};

// What a number means in a redraw, where only stored rows and their arithmetic are at work.
constexpr std::pair<ErrorNumber, Bilingual> Causes[] = {
    {ErrorNumber::InvalidNull, {"es fehlt ein Wert", "a value is missing"}},
    {ErrorNumber::TypeMismatch,
     {"ein Text steht, wo eine Zahl hingehört", "a text stands where a number belongs"}},
    {ErrorNumber::Overflow, {"eine Zahl ist zu groß", "a number is too large"}},
    {ErrorNumber::DivisionByZero,
     {"zwei Orte fallen zusammen oder eine Ausdehnung ist null", "two places coincide or an extent is zero"}},
    {ErrorNumber::StoreError, {"der Datenspeicher ist nicht lesbar", "the data store cannot be read"}}};

std::string CauseOf(const Language& language, const RuntimeError& error) {
    for (const auto& [number, text] : Causes)
        if (number == error.Number()) return text.In(language);
    return DescribeError(RuntimeError(error.Number()), language);
}

std::string TextOfAirfield(const Language& language, const MissingAirfield& missing) {
    const std::string name = "\"" + missing.Icao + "\": ";
    if (!missing.KindOfRunway)
        return name +
               language.Text("vier Zeichen, aber kein Flugplatz in ovdata.ovd. Die Karte endet hier; bitte "
                             "umbenennen.",
                             "four characters, but no airfield in ovdata.ovd. The map ends here; please "
                             "rename it.");
    const bool isPaved = *missing.KindOfRunway == MissingAirfield::Kind::Paved;
    const std::string kind = isPaved ? language.Text("befestigt", "paved") : language.Text("Gras", "grass");
    return name +
           language.Text("in ovdata.ovd hat der Flugplatz keine Piste seiner Art (",
                         "the airfield has no runway of its kind (") +
           kind +
           language.Text("). Die Karte endet hier, bis die Datei berichtigt ist.",
                         ") in ovdata.ovd. The map ends here until the file is corrected.");
}

} // namespace

DrawingFaults::DrawingFaults(const Language& uiLanguage, std::function<void(const std::string&)> toShow)
    : language(uiLanguage), show(std::move(toShow)) {}

void DrawingFaults::Tell(const std::string& text) {
    if (!text.empty() && told.insert(text).second) show(text);
}

std::string DrawingFaults::TextOf(Layer layer, const RuntimeError& error) const {
    if (const auto* missing = dynamic_cast<const MissingAirfield*>(&error))
        return TextOfAirfield(language, *missing);
    const std::string where = error.Detail().empty() ? std::string() : " (" + error.Detail() + ")";
    return Missing[static_cast<std::size_t>(layer)].In(language) + CauseOf(language, error) + where + ".";
}

} // namespace ornivane
