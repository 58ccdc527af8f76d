// LAYER Rename: which names a layer may take.
#include "EdSession.h"
#include "core/EdProperties.h"

#include <gtest/gtest.h>

namespace {
std::wstring nameOf(AcDbObjectId id) {
    return edRecordName(id);
}
} // namespace

TEST(EdLayerNames, a_layer_is_renamed_in_case_only) {
    EdSession user;
    user.type({L"-LAYER", L"New", L"utjel", L""});
    const AcDbObjectId id = edFindRecord<AcDbLayerTable>(user.db(), L"utjel");
    ASSERT_FALSE(id.isNull());
    user.type({L"-LAYER", L"Rename", L"UTJEL", L"Utjel", L""});
    EXPECT_EQ(user.refusal, L"");
    EXPECT_EQ(nameOf(id), L"Utjel");
    EXPECT_EQ(edFindRecord<AcDbLayerTable>(user.db(), L"utJEL"), id);
}

TEST(EdLayerNames, the_name_of_another_layer_is_refused_in_any_case) {
    EdSession user;
    user.type({L"-LAYER", L"New", L"egy,kettő", L""});
    const AcDbObjectId id = edFindRecord<AcDbLayerTable>(user.db(), L"egy");
    user.type({L"-LAYER", L"Rename", L"egy", L"KETTŐ", L""});
    EXPECT_EQ(user.refusal, L"\"KETTŐ\" cannot be the new name.");
    EXPECT_EQ(nameOf(id), L"egy");
}
