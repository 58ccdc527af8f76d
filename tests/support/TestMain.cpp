// main() of the test programs: fails a test that leaves a database object open.
#include "AcDbObject.h"

#include <gtest/gtest.h>

namespace {
class NothingStaysOpen : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { mBefore = acdbOpenObjectCount(); }
    void OnTestEnd(const testing::TestInfo&) override {
        if (acdbOpenObjectCount() != mBefore)
            ADD_FAILURE() << acdbOpenObjectCount() - mBefore << " database object(s) left open";
    }
    int mBefore = 0;
};
} // namespace

// Reading its font configuration, the system's library keeps a few bytes; a leak checker asks here.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new NothingStaysOpen);
    return RUN_ALL_TESTS();
}
