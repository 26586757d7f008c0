#include <chrono>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "receiver/FlightSource.h"
#include "receiver/Options.h"
#include "receiver/Playback.h"
#include "receiver/Receiver.h"

namespace {

using namespace ornivane::receiver;

std::unique_ptr<BurstSource> SourceFor(const Options& options) {
    const auto& file = options.Play.empty() ? options.Fly : options.Play;
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file.string());
    if (!options.Play.empty()) return std::make_unique<Playback>(in, options.Loop);
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    return std::make_unique<FlightSource>(Flight(ReadPoints(in), options.Flight),
                                          options.Start.value_or(now));
}

void Run(const Options& options) {
    const auto source = SourceFor(options);
    Faults faults;
    if (!faults.Chunks.Read(options.Chunk))
        throw std::runtime_error("--chunk: no such mode: " + options.Chunk);
    for (const auto& [seconds, command] : options.At)
        if (!faults.At(seconds, command)) throw std::runtime_error("--at: not understood: " + command);
    if (options.Write.empty()) return Receiver(*source, faults, options).Run();
    if (options.Loop && !options.For) throw std::runtime_error("--write with --loop needs --for");
    std::ofstream out(options.Write, std::ios::binary);
    WriteAll(*source, faults, options, out);
    if (!out.flush()) throw std::runtime_error("cannot write " + options.Write.string());
}

} // namespace

int main(int count, char** arguments) {
    try {
        const Options options = ReadOptions({arguments + 1, arguments + count});
        if (options.Help)
            std::cout << HelpText;
        else
            Run(options);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "ornivane-receiver: " << error.what() << std::endl;
        return 2;
    }
}
