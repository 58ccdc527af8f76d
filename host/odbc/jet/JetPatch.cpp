#include "JetPatch.h"

#include "JetTablePatch.h"

namespace odbc {

using namespace jet;

void JetPatch::change(const JetOrigin& table, std::optional<std::int64_t> lastNumber, const std::function<void(ChangeSink&)>& feed) {
    JetTablePatch patch(mSource.file(), table, mImage);
    feed(patch);
    if (patch.changed())
        patch.finish(lastNumber);
    else if (lastNumber) // a number that was given is not given again, even where its row is gone
        patch.saveCounter(*lastNumber);
}

} // namespace odbc
