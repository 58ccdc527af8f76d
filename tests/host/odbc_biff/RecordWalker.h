// Walks the stream of a workbook record by record and reports what breaks the rules of the format.
// It knows nothing of the writer: it reads the bytes by the public description alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct WalkedRecord {
    std::size_t place; // of its head in the stream
    std::uint16_t id;
    std::string_view body;
};

// The records of the stream; a torn one ends the list.
std::vector<WalkedRecord> recordsOf(std::string_view stream);
// Every violation as one line; empty for a sound workbook.
std::vector<std::string> walkWorkbook(std::string_view stream);
// The same for the container: its header, tables and chains.
std::vector<std::string> walkContainer(std::string_view file);
