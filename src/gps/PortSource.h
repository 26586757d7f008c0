#pragma once

#include <cstdint>
#include <optional>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "common/Settings.h"
#include "platform/ByteSource.h"

namespace ornivane {

// The serial port that the user saved, with its line settings. The port must outlive it.
class PortSource : public ByteSource {
public:
    PortSource(SerialPort& serialPort, const Settings& programSettings, const Language& uiLanguage)
        : port(serialPort), settings(programSettings), language(uiLanguage) {}

    // data.crm into ComPort and the line settings. One that cannot be read is replaced by port 1 and 4800;
    // the line settings stay as they were then.
    void TakeSettings() override;
    bool Open() override;
    // "COM 5 does not exist"; for a device that this user may not open it names the group to join instead,
    // and one that another program holds is told to be in use.
    std::string OpenFailure() const override;
    void Close() override { port.Close(); }
    bool IsOpen() const override { return port.IsOpen(); }
    std::string ReadAll() override { return port.ReadAll(); }
    void OnEvent(std::function<void(SerialEvent)> callback) override { port.OnEvent(std::move(callback)); }
    std::string Name() const override { return "COM " + std::to_string(ComPort); }

    std::int16_t ComPort = 1;
    std::string LineSettings = "4800,n,8,1";

private:
    SerialPort& port;
    const Settings& settings;
    const Language& language;
    std::optional<RuntimeError> failure; // of the last Open
};

} // namespace ornivane
