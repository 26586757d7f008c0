#pragma once

#include <string>
#include <vector>

namespace ornivane {

class Connection;

// The names of the waypoint categories in the order of their list.
std::vector<std::string> CategoryNames(Connection& dataConn);

} // namespace ornivane
