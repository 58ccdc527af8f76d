// A selection as it grows and shrinks, and the sets that modules hold.
#include "AcDbEntities.h"
#include "AcEdAds.h"
#include "EdSession.h"

#include <gtest/gtest.h>

namespace {
AcDbObjectId pointAt(EdSession& user, double x) {
    AcDbObjectId id;
    EXPECT_EQ(edAppend(user.db(), new AcDbPoint({x, 0.0, 0.0}), id), Acad::eOk);
    return id;
}
std::wstring form(AcDbObjectId id) {
    return L"(handent \"" + id.handle().text() + L"\")";
}
Adesk::Int32 lengthOf(const ads_name set) {
    Adesk::Int32 length = -1;
    return acedSSLength(set, &length) == RTNORM ? length : -1;
}
} // namespace

TEST(EdSelecting, what_undo_took_out_can_be_picked_again) {
    EdSession user;
    const AcDbObjectId first = pointAt(user, 0.0), second = pointAt(user, 10.0);
    user.type({L"SELECT", form(first), form(second), L"Undo", form(second), L"", L"ERASE"});
    EXPECT_TRUE(first.isErased());
    EXPECT_TRUE(second.isErased());
    EXPECT_FALSE(user.printed(L"duplicate"));
}

TEST(EdSelecting, undo_takes_out_the_last_one_only) {
    EdSession user;
    const AcDbObjectId first = pointAt(user, 0.0), second = pointAt(user, 10.0);
    user.type({L"SELECT", form(first), form(second), L"U", L"", L"ERASE"});
    EXPECT_TRUE(first.isErased());
    EXPECT_FALSE(second.isErased());
}

TEST(EdSelecting, what_was_removed_can_be_added_again) {
    EdSession user;
    const AcDbObjectId first = pointAt(user, 0.0), second = pointAt(user, 10.0);
    user.type({L"SELECT", L"ALL", L"Remove", form(second), L"Add", form(second), L"", L"ERASE"});
    EXPECT_TRUE(first.isErased());
    EXPECT_TRUE(second.isErased());
    EXPECT_FALSE(user.printed(L"duplicate"));
}

TEST(EdSelectionSets, a_released_set_answers_nothing_and_the_others_stand) {
    EdSession user;
    pointAt(user, 0.0);
    pointAt(user, 10.0);
    ads_name one, two;
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, one), RTNORM);
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, two), RTNORM);
    ASSERT_EQ(lengthOf(one), 2);
    EXPECT_EQ(acedSSFree(one), RTNORM);
    EXPECT_EQ(lengthOf(one), -1);
    EXPECT_EQ(lengthOf(two), 2);
    ads_name entity;
    EXPECT_EQ(acedSSName(one, 0, entity), RTERROR);
    EXPECT_EQ(acedSSFree(one), RTERROR) << "once is enough";
    EXPECT_EQ(acedSSFree(two), RTNORM);
}
