#pragma once

#include <fstream>

#include "ProgramUnderTest.h"

#include "store/Connection.h"

namespace ornivane {

// The program before a flight that the simulated receiver has written into a file.
class RecordedFlight : public ProgramUnderTest {
protected:
    RecordedFlight() {
        data.Open(Folder() / "data.ovd", Connection::Mode::ReadWrite);
        WriteFile("data.crm", "\"1\"\r\n\"57600\"\r\n");
    }
    // The chart's image is missing on purpose: positions show on a blank sheet of the same frame.
    void AddSheet(double bottom, double top, double left, double right) {
        data.Execute("INSERT INTO Maps VALUES ('sheet.jpg', ?, ?, ?, ?, 2800, 2540, 1)",
                     {top, bottom, left, right});
    }
    void Record(const char* points, std::vector<std::string> arguments) {
        WriteFile("points.txt", points);
        arguments.insert(arguments.end(), {"--start", "2024-05-01T09:30:00", "--fly", File("points.txt"),
                                           "--write", File("flight.nmea")});
        ChildProcess maker(RECEIVER, {arguments, {}, File("maker.txt")});
        ASSERT_EQ(maker.WaitForEnd(std::chrono::seconds(20)), 0);
        std::ifstream recording(File("flight.nmea"));
        for (std::string line; std::getline(recording, line);) Sentences.push_back(line + "\n");
    }
    // One that says where it is.
    static bool IsPosition(const std::string& sentence) {
        return sentence.starts_with("$GPGGA") || sentence.starts_with("$GPRMC") ||
               sentence.starts_with("$GPGLL");
    }
    std::string File(const char* name) const { return (Folder() / name).string(); }
    int Redraws() { return std::stoi(program->Ask("property picMap Redraws")); }

    Connection data;
    std::vector<std::string> Sentences;
};

} // namespace ornivane
