// What characters weigh in an index, as the checker knows it: written down again, so that a mistake of the writer's
// table is found and not believed.
#pragma once

#include <cstdint>

namespace odbc::jet {

struct CheckWeight {
    std::uint16_t letter = 0;   // one byte, or two with the higher one first; 0: none
    std::uint8_t accent = 2;    // 2: none
    std::uint8_t atTheEnd = 0;  // of apostrophe and hyphen, which weigh behind everything else
    bool known() const { return letter != 0 || atTheEnd != 0; }
};
CheckWeight checkWeightOf(char16_t c);

} // namespace odbc::jet
