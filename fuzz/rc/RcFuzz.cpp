// Resource scripts from anywhere: every text reads or gives an error with its line.
#include "resource/RcScript.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    RcScript script;
    const RcError error = rcRead(std::string_view(reinterpret_cast<const char*>(data), size), script);
    const bool isTold = (error.line == 0) == error.reason.empty();
    if (!isTold || error.line < 0)
        std::abort();
    for (const auto& [key, dialog] : script.dialogs)
        if (dialog.w < 1 || dialog.h < 1 || dialog.w > 4000 || dialog.h > 4000)
            std::abort();
    return 0;
}
