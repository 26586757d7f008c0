#pragma once

#include <stdexcept>
#include <string>

namespace ornivane {

// Why a part of a file cannot be used, for the report: the file is at fault, never the program.
class Unusable : public std::runtime_error {
public:
    explicit Unusable(const std::string& reason) : std::runtime_error(reason) {}
};

} // namespace ornivane
