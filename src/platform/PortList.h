#pragma once

#include <string>

namespace ornivane {

// Which numbered ports the machine has.
class PortList {
public:
    virtual ~PortList() = default;
    // A port is offered when its device exists and is a terminal.
    virtual bool Exists(int number) const = 0;
    // Device and its description, for the tooltip; empty when there is no such port.
    virtual std::string Description(int number) const = 0;
};

} // namespace ornivane
