// Makes a chart of files in other formats and projections.

#include <csignal>
#include <iostream>
#include <thread>
#include <unistd.h>

#include "base/FileNames.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "calibration/ImportedCharts.h"
#include "chart-import/Options.h"
#include "chart-import/PosixChildPrograms.h"

namespace {

using namespace ornivane;

enum Status { Entered = 0, WrongCall = 2, NothingWritten = 3 };

constexpr double MuchWhite = 0.5;

// Turns the signals that end a program into a request to stop, so that nothing stays behind.
class StopSignals {
public:
    StopSignals() {
        ::sigemptyset(&signals);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&signals, signal);
        ::pthread_sigmask(SIG_BLOCK, &signals, nullptr); // before there is a second thread
        waiter = std::jthread([this](const std::stop_token& done) {
            const timespec pause{0, 100'000'000};
            while (!done.stop_requested())
                if (::sigtimedwait(&signals, nullptr, &pause) > 0) source.request_stop();
        });
    }
    std::stop_token Token() const { return source.get_token(); }

private:
    sigset_t signals{};
    std::stop_source source;
    std::jthread waiter;
};

void CheckFree(const std::string& image, const ChartImportOptions& options, Connection& store) {
    const auto taken = TakenBy(options.Order.ChartsFolder, store, image);
    if (taken && IsInTheWay(*taken, image, options.Replace ? Replacing::Yes : Replacing::No))
        throw RuntimeError(ErrorNumber::BadFileName, *taken + " is there already");
}

std::string NameFor(const ChartImportOptions& options) {
    std::string name =
        options.Order.Name.empty() ? ChartNameOf(options.Order.Files.front()) : options.Order.Name;
    if (name.empty() || name.starts_with('.') || !IsValidUtf8(name))
        throw RuntimeError(ErrorNumber::BadFileName, "give the chart a name with --name");
    CheckFileName(name);
    return name;
}

void ShowProgress(double share) {
    static int shown = -1;
    const int percent = static_cast<int>(share * 100);
    if (percent == shown || !::isatty(STDERR_FILENO)) return;
    shown = percent;
    std::cerr << '\r' << percent << " %" << std::flush;
}

Status Run(ChartImportOptions options, const StopSignals& signals) {
    options.Order.ChartsFolder = options.Program / "Karten";
    options.Order.Name = NameFor(options);
    Connection store;
    store.Open(options.Program / "data.ovd", Connection::Mode::ReadWrite);
    CheckFree(options.Order.Name + ".jpg", options, store);

    PosixChildPrograms programs;
    const auto chart = ChartImport(programs, ShowProgress).Run(options.Order, signals.Token());
    if (::isatty(STDERR_FILENO)) std::cerr << '\r';
    if (!chart) {
        std::cerr << ImportFailureText(Language::English(), chart.Why()) << '\n';
        return NothingWritten;
    }
    for (const ImportedSheet& sheet : chart->Sheets) CheckFree(sheet.Name, options, store);
    EnterChart(*chart, options.Order.ChartsFolder, store);
    for (const ImportedSheet& sheet : chart->Sheets) {
        const DegreeBox box = sheet.Box.Degrees();
        std::cout << sheet.Name << ": " << sheet.Extent.Width << " x " << sheet.Extent.Height << " pixels, "
                  << box.South << " to " << box.North << " N, " << box.West << " to " << box.East << " E\n";
    }
    if (chart->WhiteShare > MuchWhite)
        std::cout << static_cast<int>(chart->WhiteShare * 100)
                  << " % of it are white: look at it before you fly with it\n";
    return Entered;
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string_view> arguments(values + 1, values + count);
    if (arguments.size() == 1 && arguments[0] == "--help") {
        std::cout << ChartImportOptions::Usage();
        return Entered;
    }
    const auto options = ChartImportOptions::Parse(arguments);
    if (!options) {
        std::cerr << ChartImportOptions::Usage();
        return WrongCall;
    }
    const StopSignals signals;
    try {
        return Run(*options, signals);
    } catch (const RuntimeError& error) {
        std::cerr << DescribeError(error, Language::English()) << '\n';
        return NothingWritten;
    }
}
