// The process-wide choices of the state change.
#include "TrfcStateChangeData.h"

namespace {
std::unique_ptr<TrfcStateChangeData>& current() {
    static auto data = std::make_unique<TrfcStateChangeData>();
    return data;
}
} // namespace

TrfcStateChangeData& stateChangeData() {
    return *current();
}

void setStateChangeData(std::unique_ptr<TrfcStateChangeData> data) {
    current() = std::move(data);
}
