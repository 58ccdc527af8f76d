#include "AcRxObject.h"

#include <gtest/gtest.h>

#include <memory>

namespace {
class Sign : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(Sign);
};
class Plate : public Sign {
public:
    ACRX_DECLARE_MEMBERS(Plate);
};
class Rider : public Plate {
public:
    ACRX_DECLARE_MEMBERS(Rider);
};
HOST_RX_DEFINE(Sign, AcRxObject, L"SIGN")
} // namespace
class Frame : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(Frame);
    virtual void draw() = 0;
};
ACRX_DXF_DEFINE_MEMBERS(Plate, Sign, 25, 3, 1, L"PLATE", L"Plates|by us")
ACRX_DXF_DEFINE_MEMBERS(Rider, Plate, 25, 3, 1, L"RIDER", L"Plates|by us")
ACRX_NO_CONS_DEFINE_MEMBERS(Frame, AcRxObject)

TEST(RuntimeClass, a_host_class_is_registered_before_main) {
    ASSERT_NE(acrxFindClass(L"Sign"), nullptr);
    EXPECT_EQ(acrxFindClass(L"Sign"), Sign::desc());
    EXPECT_EQ(acrxFindClassByDxfName(L"SIGN"), Sign::desc());
    EXPECT_EQ(Sign::desc()->appName(), nullptr);
}
TEST(RuntimeClass, a_modules_class_comes_with_rxInit_and_goes_with_deleteAcRxClass) {
    EXPECT_EQ(acrxFindClass(L"Plate"), nullptr);
    Plate::rxInit();
    acrxBuildClassHierarchy();
    int version = 0, maintenance = 0;
    Plate::desc()->getClassVersion(version, maintenance);
    EXPECT_EQ(version, 25);
    EXPECT_EQ(maintenance, 3);
    EXPECT_EQ(Plate::desc()->proxyFlags(), 1);
    EXPECT_STREQ(Plate::desc()->appName(), L"Plates|by us");
    const std::unique_ptr<AcRxObject> made(Plate::desc()->create());
    EXPECT_NE(Plate::cast(made.get()), nullptr);
    EXPECT_NE(Sign::cast(made.get()), nullptr);
    EXPECT_TRUE(made->isKindOf(AcRxObject::desc()));
    const Sign plain;
    EXPECT_EQ(Plate::cast(&plain), nullptr);
    EXPECT_EQ(Plate::cast(nullptr), nullptr);
    deleteAcRxClass(Plate::desc());
    EXPECT_EQ(acrxFindClass(L"Plate"), nullptr);
    EXPECT_STREQ(made->isA()->name(), L"Plate"); // what lives keeps its class
    EXPECT_TRUE(made->isKindOf(Sign::desc()));
}
TEST(RuntimeClass, a_name_registered_twice_is_one_class) {
    EXPECT_EQ(newAcRxClass(L"Sign", nullptr, 99), Sign::desc());
    EXPECT_EQ(Sign::desc()->myParent(), AcRxObject::desc());
}
TEST(RuntimeClass, an_abstract_class_makes_nothing) {
    Frame::rxInit();
    EXPECT_EQ(Frame::desc()->create(), nullptr);
    EXPECT_EQ(Frame::desc()->dxfName(), nullptr);
    deleteAcRxClass(Frame::desc());
}

namespace {
// A module registers children before parents in places; the tree is completed afterwards.
void loadRiders() {
    Rider::rxInit();
    Plate::rxInit();
    acrxBuildClassHierarchy();
}
} // namespace
TEST(RuntimeClass, a_class_that_comes_again_derives_from_the_parent_that_came_again) {
    loadRiders();
    const AcRxClass* const earlier = Plate::desc();
    const Rider placedBefore;
    deleteAcRxClass(Rider::desc());
    deleteAcRxClass(Plate::desc());
    loadRiders();
    ASSERT_NE(Plate::desc(), earlier);
    EXPECT_EQ(Rider::desc()->myParent(), Plate::desc());
    EXPECT_TRUE(placedBefore.isKindOf(Plate::desc()));
    EXPECT_TRUE(placedBefore.isKindOf(Sign::desc()));
    deleteAcRxClass(Rider::desc());
    deleteAcRxClass(Plate::desc());
}
TEST(RuntimeClass, a_class_that_was_left_behind_finds_its_parent_again_by_name) {
    loadRiders();
    AcRxClass* const left = Rider::desc();
    deleteAcRxClass(Plate::desc());
    EXPECT_EQ(left->myParent(), Sign::desc()); // meanwhile the parent's own
    loadRiders();
    EXPECT_EQ(Rider::desc(), left);
    EXPECT_EQ(left->myParent(), Plate::desc());
    deleteAcRxClass(Rider::desc());
    deleteAcRxClass(Plate::desc());
}
