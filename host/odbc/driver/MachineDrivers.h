// The machine's own drivers, through unixODBC.
#pragma once

#include "store/Session.h"

#include <memory>

namespace odbc {

// Names, UTF-8, as the machine's list has them.
std::vector<std::string> machineDrivers();

// connect: UTF-8, without "ODBC;". Text goes to the drivers and comes from them as UTF-8.
// A MachineError where no connection can be made.
std::unique_ptr<Session> openMachineSession(const std::string& connect, bool readOnly);

// A driver's own words.
class MachineError : public StoreError {
public:
    MachineError(const std::string& text, std::string stateOrigin) : StoreError(text), origin(std::move(stateOrigin)) {}
    std::string origin; // "State:...,Native:...,Origin:..."
};

} // namespace odbc
