#pragma once

#include "platform/PortList.h"
#include "platform/qt/PortDevices.h"

namespace ornivane {

// The ports of this machine. Looking does not open a device where the system can tell otherwise: opening
// resets some receivers, and a Bluetooth port would call its receiver.
class QtPortList : public PortList {
public:
    explicit QtPortList(PortDevices portDevices) : devices(std::move(portDevices)) {}

    // Also true for a device that this user may not open or that another program holds: opening it says why.
    bool Exists(int number) const override;
    std::string Description(int number) const override;

private:
    PortDevices devices;
};

} // namespace ornivane
