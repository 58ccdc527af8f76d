// What the host still holds of the module when it is unloaded: it must not be told to call what is gone.
#include "CTrfcSignsARXApp.h"
#include "TrfcClasses.h"

#include "AcDbAnnotationScale.h"
#include "DbScaleList.h"
#include "TrfcScaleTracking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {
bool gWatching = false, gFreedWhileListed = false;

void release(void* memory) noexcept {
    if (gWatching && std::find(dbScaleReactors().begin(), dbScaleReactors().end(), memory) != dbScaleReactors().end())
        gFreedWhileListed = true;
    std::free(memory);
}
} // namespace

// For the whole program, so that no object goes while the host still lists it, whoever frees it.
void* operator new(std::size_t size) {
    if (void* const memory = std::malloc(size != 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }

TEST(UnloadRelease, the_scale_reactor_is_removed_before_it_is_released) {
    for (const AcRxClassRow& row : trfcClassRows())
        row.rxInit();
    acrxBuildClassHierarchy();
    const std::vector<AcDbAnnotationScaleReactor*> before = dbScaleReactors();
    CAnnoScaleReactor* const reactor = CAnnoScaleReactor::instance();
    acdbAddAnnotationScaleReactor(reactor);
    ASSERT_EQ(dbScaleReactors().size(), before.size() + 1);
    gFreedWhileListed = false;
    gWatching = true;
    EXPECT_EQ(trfcApp()->On_kUnloadAppMsg(nullptr), AcRx::kRetOK);
    gWatching = false;
    EXPECT_FALSE(gFreedWhileListed);
    EXPECT_EQ(dbScaleReactors(), before);
}
