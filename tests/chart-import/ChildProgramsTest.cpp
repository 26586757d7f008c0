#include "chart-import/PosixChildPrograms.h"

#include <fstream>
#include <iterator>
#include <thread>

#include <gmock/gmock.h>

namespace {

using namespace ornivane;
using How = ChildEnd::How;

ChildCall Shell(const std::string& script) {
    return {"/bin/sh", {"-c", script}, {"PATH=/usr/bin:/bin"}, {}, {}};
}

// What was killed and nobody has asked for yet does not run.
bool IsRunning(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return !text.empty() && text.find(") Z") == std::string::npos;
}

TEST(ChildPrograms, AreHeardFedAndKeptToTheirEnvironment) {
    PosixChildPrograms programs;
    std::string heard;
    ChildCall call = Shell("cat; echo error >&2; echo \"[$HOME]\"; exit 3");
    call.Input = std::string(300000, 'x'); // more than a pipe holds
    const ChildEnd end = programs.Run(call, {}, [&](std::string_view bytes) { heard += bytes; });
    EXPECT_EQ(end.Ended, How::Exited);
    EXPECT_EQ(end.Status, 3);
    EXPECT_EQ(heard, call.Input + "[]\n");
    EXPECT_EQ(end.Output, heard);
    EXPECT_EQ(end.Errors, "error\n");
    call = Shell("exec 0<&-; echo done"); // does not read what it is fed
    call.Input = std::string(300000, 'x');
    EXPECT_EQ(programs.Run(call, {}, {}).Output, "done\n");
    EXPECT_EQ(programs.Run({"/does/not/exist", {}, {}, {}, {}}, {}, {}).Ended, How::CouldNotStart);
    EXPECT_FALSE(programs.Find("no-program-of-this-name"));
    EXPECT_TRUE(programs.Find("sh"));
}

TEST(ChildPrograms, ArgumentsArriveAsTheyAre) {
    const std::vector<std::string> arguments{"-n", "it's", "a\nb", "$(id)", "%s", "\"", "", "*"};
    ChildCall call{"/usr/bin/printf", {"<%s>"}, {}, {}, {}};
    call.Arguments.insert(call.Arguments.end(), arguments.begin(), arguments.end());
    std::string expected;
    for (const std::string& each : arguments) expected += "<" + each + ">";
    EXPECT_EQ(PosixChildPrograms().Run(call, {}, {}).Output, expected);
}

TEST(ChildPrograms, EndTogetherWithTheirOwnChildren) {
    PosixChildPrograms programs;
    const std::string script = "sleep 300 & echo $!; wait";
    std::stop_source stop;
    pid_t grandchild = 0;
    const auto listen = [&](std::string_view bytes) {
        grandchild = std::stoi(std::string(bytes));
        stop.request_stop();
    };
    EXPECT_EQ(programs.Run(Shell(script), stop.get_token(), listen).Ended, How::Stopped);
    ASSERT_GT(grandchild, 0);
    for (int i = 0; i < 500 && IsRunning(grandchild); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_FALSE(IsRunning(grandchild));
}

TEST(ChildPrograms, LimitsEndThem) {
    PosixChildPrograms programs;
    ChildCall call = Shell("echo x; sleep 300");
    call.Limits.Silent = std::chrono::seconds(1);
    EXPECT_EQ(programs.Run(call, {}, {}).Ended, How::TookTooLong);
    call = Shell("while :; do echo x; sleep 0.1; done");
    call.Limits.Total = std::chrono::seconds(1);
    EXPECT_EQ(programs.Run(call, {}, {}).Ended, How::TookTooLong);
    call = Shell("exec 1>&- 2>&-; sleep 300");
    std::stop_source stop;
    std::jthread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        stop.request_stop();
    });
    EXPECT_EQ(programs.Run(call, stop.get_token(), {}).Ended, How::Stopped);
    call = {"/bin/dd", {"if=/dev/zero", "of=/dev/null", "bs=200M", "count=1"}, {}, {}, {}};
    call.Limits.MemoryBytes = 100 << 20;
    EXPECT_FALSE(programs.Run(call, {}, {}).Succeeded());
}

} // namespace
