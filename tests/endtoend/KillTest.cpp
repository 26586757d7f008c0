#include <algorithm>
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include "ProgramUnderTest.h"
#include "support/Rows.h"

namespace ornivane {

using namespace std::chrono_literals;

// A program that records the flight of a receiver of its own once a second, killed and started again.
class RecordingProgram : public ProgramUnderTest {
public:
    explicit RecordingProgram(unsigned seed) : chance(seed) {
        WriteFile("data.crm", "\"1\"\r\n\"57600\"\r\n");
        WriteFile("track.crm", "1\r\n1\r\n1\r\n");
        // In the air after a moment, and never lands.
        StartReceiver({"--pace", "10", "--loop"});
    }
    void TestBody() override {}

    void RunAndKill(int kills) {
        for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
            SCOPED_TRACE("start " + std::to_string(kill + 1));
            Start();
            program->Click("cmdGPS");
            const int seen = WaitForSamples(1 + Between(0, 1));
            if (kill % 2 == 0)
                Process().WaitForEnd(std::chrono::milliseconds(Between(0, 1200)));
            else
                WaitForWriting();
            ASSERT_TRUE(Process().IsRunning());
            Process().Signal(SIGKILL);
            ASSERT_EQ(Process().WaitForEnd(5s), 128 + SIGKILL);
            HalfWritten += HasJournal();
            CheckStore(static_cast<std::size_t>(kill) + 1, seen);
        }
    }

    int Watched = 0;     // kills that waited for the journal of a sample and saw it
    int HalfWritten = 0; // kills that left a journal for the next start to roll back
    std::size_t Samples() const { return rows.size(); }

private:
    ChildProcess& Process() { return program->Process(); }
    int Between(int least, int most) { return std::uniform_int_distribution(least, most)(chance); }
    bool HasJournal() const {
        std::error_code none;
        return std::filesystem::file_size(Folder() / "track.ovd-journal", none) > 0 && !none;
    }
    int WaitForSamples(int count) {
        int seen = 0;
        EXPECT_TRUE(WaitUntil([&] { return (seen = std::stoi(program->Text("lblRecord"))) >= count; }, 15s));
        return seen;
    }
    // The store's journal is there from the beginning of a sample's transaction to its end. Without a pause
    // between two looks, and mostly killed early: the moment is over within a few milliseconds.
    void WaitForWriting() {
        using Clock = std::chrono::steady_clock;
        Process().WaitForEnd(900ms); // the next sample comes a second after the last
        const auto end = Clock::now() + 3s;
        while (!HasJournal() && Clock::now() < end) std::this_thread::yield();
        Watched += Clock::now() < end;
        const int part = Between(0, 100);
        const auto kill = Clock::now() + std::chrono::microseconds(part * part / 4);
        while (Clock::now() < kill) std::this_thread::yield();
    }
    void CheckStore(std::size_t recordings, int seen) {
        for (const StoreKind kind :
             {StoreKind::Data, StoreKind::Track, StoreKind::Luftraum, StoreKind::Airfields}) {
            Connection each;
            each.Open(Folder() / StoreFileName(kind), Connection::Mode::ReadWrite);
            EXPECT_EQ(Rows(each, "PRAGMA integrity_check"), std::vector<std::string>{"ok"})
                << StoreFileName(kind);
        }
        Connection store;
        store.Open(Folder() / "track.ovd", Connection::Mode::ReadWrite);
        EXPECT_EQ(Rows(store, "SELECT Name FROM List WHERE Name <> ''").size(), recordings);
        const auto now = Rows(store, "SELECT * FROM Track ORDER BY \"Index\", Number");
        ASSERT_GE(now.size(), rows.size());
        EXPECT_TRUE(std::equal(rows.begin(), rows.end(), now.begin())) << "earlier recordings changed";
        EXPECT_GE(now.size() - rows.size(), static_cast<std::size_t>(seen)) << "a sample that was shown";
        for (std::size_t i = rows.size(); i < now.size(); ++i) {
            const std::string start =
                std::to_string(recordings) + "|" + std::to_string(i - rows.size() + 1) + "|";
            EXPECT_EQ(now[i].substr(0, start.size()), start);
        }
        rows = now;
    }
    static std::vector<std::string> Rows(Connection& store, const char* sql) {
        return RowsOf(store, sql, NumbersAs::Stored, "|");
    }

    std::mt19937 chance;
    std::vector<std::string> rows; // of all samples, as the last kill left them
};

// Of each program; ORNIVANE_KILLS says how many all of them together shall take.
int KillsOfEach(int programs) {
    const char* all = std::getenv("ORNIVANE_KILLS");
    return all ? std::max(1, std::atoi(all) / programs) : 10;
}

TEST(Kill, LosesNoSampleThatTheTrackLoggerHasShown) {
    constexpr int programs = 5;
    const int kills = KillsOfEach(programs);
    std::vector<std::unique_ptr<RecordingProgram>> all;
    for (unsigned seed = 1; seed <= programs; ++seed) all.push_back(std::make_unique<RecordingProgram>(seed));
    {
        std::vector<std::jthread> side;
        for (auto& one : all) side.emplace_back([&one, kills] { one->RunAndKill(kills); });
    }
    int watched = 0, halfWritten = 0;
    std::size_t samples = 0;
    for (const auto& one : all) {
        watched += one->Watched;
        halfWritten += one->HalfWritten;
        samples += one->Samples();
    }
    EXPECT_GT(watched, 0) << "no kill was aimed at a write";
    // Few half-written ones where the store is in memory, where a write is over at once.
    std::cout << programs * kills << " kills, " << watched << " of them aimed at a write, " << halfWritten
              << " half-way through one; " << samples << " samples in the stores\n";
}

} // namespace ornivane
