// Extended data names objects by the text of their handles (1005): in copies it names the copies.
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "AcUtText.h"

#include <gtest/gtest.h>

#include <vector>

namespace {
AcDbObjectId addLine(AcDbDatabase& db) {
    auto* const line = new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    AcDbObjectId id;
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(db.modelSpaceId(), AcDb::kForWrite)->appendAcDbEntity(id, line), Acad::eOk);
    line->close();
    return id;
}
// The object names the others in its extended data, between two items that are no handles.
void nameOthers(AcDbObjectId id, const std::vector<std::wstring>& handles) {
    resbuf* const chain = acutBuildList(1001, L"TÁRSAK", 1000, handles.front().c_str(), 0);
    resbuf* last = chain;
    while (last->rbnext != nullptr)
        last = last->rbnext;
    for (const std::wstring& handle : handles) {
        last->rbnext = acutBuildList(1005, handle.c_str(), 0);
        last = last->rbnext;
    }
    EXPECT_EQ((AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->setXData(chain)), Acad::eOk);
    acutRelRb(chain);
}
std::vector<std::wstring> namedBy(AcDbObjectId id, short type = 1005) {
    resbuf* const chain = AcDbObjectPointer<AcDbEntity>(id)->xData(L"TÁRSAK");
    std::vector<std::wstring> handles;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext)
        if (item->restype == type)
            handles.emplace_back(item->resval.rstring);
    acutRelRb(chain);
    return handles;
}
std::wstring handleOf(AcDbObjectId id) {
    return id.handle().text();
}
AcDbObjectId copyOf(AcDbIdMapping& map, AcDbObjectId original) {
    AcDbIdPair pair;
    pair.key = original;
    EXPECT_TRUE(map.compute(pair));
    return pair.value;
}
// Two lines that name one another and themselves, and one that stays behind.
struct Friends {
    explicit Friends(AcDbDatabase& db) : a(addLine(db)), b(addLine(db)), other(addLine(db)) {
        nameOthers(a, {handleOf(b), handleOf(a), handleOf(other), L"FFFF"});
        nameOthers(b, {handleOf(a)});
        both.append(a);
        both.append(b);
    }
    AcDbObjectId a, b, other;
    AcDbObjectIdArray both;
};
using Texts = std::vector<std::wstring>;
} // namespace

TEST(CloneHandles, copies_in_a_drawing_name_one_another_and_what_was_not_copied_as_before) {
    AcDbDatabase db;
    Friends friends(db);
    AcDbIdMapping map;
    ASSERT_EQ(db.deepCloneObjects(friends.both, db.modelSpaceId(), map), Acad::eOk);
    const AcDbObjectId a = copyOf(map, friends.a), b = copyOf(map, friends.b);
    EXPECT_EQ(namedBy(a), (Texts{handleOf(b), handleOf(a), handleOf(friends.other), L"FFFF"}));
    EXPECT_EQ(namedBy(b), Texts{handleOf(a)});
    EXPECT_EQ(namedBy(a, 1000), Texts{handleOf(friends.b)}) << "a text is no handle, whatever it says";
    EXPECT_EQ(namedBy(friends.a), (Texts{handleOf(friends.b), handleOf(friends.a), handleOf(friends.other), L"FFFF"})) << "the originals stay as they were";
}

TEST(CloneHandles, copies_in_another_drawing_name_one_another_and_nothing_that_did_not_come_along) {
    AcDbDatabase from, to;
    for (int i = 0; i < 5; ++i)
        addLine(to); // so that the same handles mean other objects there
    Friends friends(from);
    AcDbIdMapping map;
    ASSERT_EQ(to.wblockCloneObjects(friends.both, to.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eOk);
    const AcDbObjectId a = copyOf(map, friends.a), b = copyOf(map, friends.b);
    ASSERT_NE(handleOf(a), handleOf(friends.a));
    EXPECT_EQ(namedBy(a), (Texts{handleOf(b), handleOf(a), L"0", L"FFFF"}));
    EXPECT_EQ(namedBy(b), Texts{handleOf(a)});
}
