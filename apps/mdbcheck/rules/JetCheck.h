// The rules that a Jet 4 file must keep, checked one by one. Other programs open files that break
// them; Access hides rows, loses tables or refuses the file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace odbc {

struct JetViolation {
    std::uint32_t page = 0;
    std::string text; // one English sentence
};

// Every violation that is found, in the order of the checks; nothing for a clean file. Throws
// StoreError where the file cannot be opened or is no Jet 4 file.
std::vector<JetViolation> checkJet(const std::string& path);

namespace jet {
class JetFile;
// The same of a file of Jet 4 that is open.
std::vector<JetViolation> checkRules(const JetFile& file);
} // namespace jet

} // namespace odbc
