#pragma once

#include "chart-import/ChildPrograms.h"

namespace ornivane {

// Children of this process: each in a process group of its own, which is killed as a whole, and by the system
// when this process dies.
class PosixChildPrograms : public ChildPrograms {
public:
    // In the folders of PATH.
    std::optional<std::filesystem::path> Find(const std::string& name) override;
    ChildEnd Run(const ChildCall& call, const std::stop_token& stop, const Listener& heard) override;
};

} // namespace ornivane
