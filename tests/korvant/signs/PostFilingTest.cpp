// The post's record: copies, layout, earlier versions.
#include "SignsFixture.h"

#include "TrfcStateChangeData.h"

#include <rapidcheck/gtest.h>

namespace {
class PostFiling : public SignsFixture {
protected:
    std::unique_ptr<TrfcPost> fullPost() {
        auto post = newPost(3);
        TrfcTable::cast(post->signChain()[0])->setComplIndex(1);
        post->signChain().setBlockType(2, kBlockCovered);
        post->addLampChain({5.0, 0.0, 0.0});
        post->lampChain(0).appendBlockDownward(newLamp());
        post->postData().height = 3.25;
        post->postData().material = L"acél";
        post->postText().text = L"Árvíztűrő";
        post->setExchangeId(4711);
        post->setLampsFollowRotation(false);
        setScale(1000);
        post->setScale(1000);
        setScale(500);
        post->setScale(500);
        return post;
    }
};

// The record as a version wrote it, with A, B, D and what the version knew.
struct EarlierPost {
    Adesk::UInt32 version = 1;
    Adesk::UInt16 postType = 0;
    bool withRecord = false;

    void writeScale(AcDbDwgFiler& filer) const {
        filer.writeUInt32(version);
        for (const double y : {0.0, 20.0, 20.0, 40.0})
            filer.writePoint3d({0.0, y, 0.0});
        if (version >= 6)
            filer.writePoint3d({9.0, 9.0, 0.0});
        filer.writeVector3d({0.0, 20.0, 0.0});
        filer.writeDouble(0.0);
        filer.writeDouble(0.7);
        filer.writeBool(false);
    }
    void write(AcDbDwgFiler& filer) const {
        AcDbLine().AcDbEntity::dwgOutFields(&filer);
        filer.writeUInt32(version);
        filer.writeInt16(withRecord ? 1 : 0);
        if (withRecord) {
            filer.writeInt16(1000);
            writeScale(filer);
        }
        filer.writeUInt32(version);
        filer.writeUInt16(5);
        for (const double y : {0.0, 10.0, 10.0, 20.0})
            filer.writePoint3d({0.0, y, 0.0});
        if (version >= 6)
            filer.writePoint3d({3.0, 3.0, 0.0});
        filer.writeVector3d({0.0, 10.0, 0.0});
        filer.writeDouble(0.4);
        filer.writeDouble(0.0);
        filer.writeDouble(0.7);
        filer.writeBool(false);
        filer.writeBool(false);
        filer.writeUInt16(postType);
        filer.writeDouble(2.5);
        filer.writeString(L"fa");
        if (version >= 6)
            filer.writeString(L"felirat");
        if (postType != 4)
            AcDbBlockReference().dwgOutFields(&filer);
        TrfcBlockChain({0.0, 20.0, 0.0}, 0.0, kSignChain).dwgOutFields(&filer);
        filer.writeInt16(1);
        TrfcBlockChain({0.5, 0.0, 0.0}, kHalfPi, kPostLampChain).dwgOutFields(&filer);
        if (version >= 2)
            filer.writeUInt32(99);
        filer.writeString(L"the end");
    }
};

void read(const EarlierPost& earlier, TrfcPost& post) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    earlier.write(memory);
    memory.seek(0, AcDb::kSeekFromStart);
    ASSERT_EQ(post.dwgInFields(&memory), Acad::eOk);
    std::wstring end;
    memory.readString(end);
    EXPECT_EQ(end, L"the end");
}
} // namespace

TEST_F(PostFiling, a_clone_has_the_same_record) {
    const auto post = fullPost();
    const std::unique_ptr<TrfcPost> copy(post->clone());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(filed(*copy), filed(*post));
    EXPECT_TRUE(printed.empty()) << acToUtf8(printed);
}

TEST_F(PostFiling, taking_a_clone_replaces_the_content) {
    const auto post = fullPost();
    const std::unique_ptr<TrfcPost> copy(post->clone());
    copy->signChain().deleteBlock(0);
    copy->postText().text.clear();
    copy->addLampChain({0.0, -5.0, 0.0});
    post->copyFromClone(copy.get());
    EXPECT_EQ(filed(*post), filed(*copy));
    EXPECT_EQ(post->lampChainCount(), 2);
    post->copyFromClone(nullptr);
    EXPECT_EQ(filed(*post), filed(*copy));
}

TEST_F(PostFiling, a_resident_post_takes_a_clone_and_stays_in_its_drawing) {
    const AcDbObjectId id = resident(fullPost());
    const AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
    const std::unique_ptr<TrfcPost> copy(post->clone());
    copy->postText().text = L"új";
    post->copyFromClone(copy.get());
    EXPECT_EQ(post->postText().text, L"új");
    EXPECT_EQ(post->objectId(), id);
    EXPECT_EQ(post->ownerId(), database().modelSpaceId());
}

TEST_F(PostFiling, files_its_fields_in_their_order) {
    const auto post = newPost(1);
    const auto lines = filed(*post);
    std::vector<std::wstring> own; // of the post itself, its parts left out
    for (const std::wstring& line : lines)
        if (line.front() != L' ')
            own.push_back(line.substr(0, line.find(L' ')));
    const std::vector<std::wstring> tail = {L"writeUInt32",  L"writeUInt16",  L"writePoint3d", L"writePoint3d", L"writePoint3d", L"writePoint3d", L"writePoint3d",
                                            L"writeVector3d", L"writeDouble", L"writeDouble",  L"writeDouble",  L"writeBool",    L"writeBool"};
    const auto found = std::search(own.begin(), own.end(), tail.begin(), tail.end());
    EXPECT_NE(found, own.end());
    EXPECT_EQ(own.back(), L"writeUInt32");
}

TEST_F(PostFiling, reads_every_earlier_version) {
    for (Adesk::UInt32 version = 1; version <= 6; ++version) {
        SCOPED_TRACE(version);
        TrfcPost post;
        read({version, 0, true}, post);
        expectNear(post.pointD(), {0.0, 20.0, 0.0});
        EXPECT_DOUBLE_EQ(post.armRatio(), 0.4);
        EXPECT_FALSE(post.lampsFollowRotation());
        EXPECT_EQ(post.postData().material, L"fa");
        EXPECT_DOUBLE_EQ(post.postData().height, 2.5);
        EXPECT_EQ(post.placementPhase(), 5);
        expectNear(post.pointB(), {0.0, 10.0, 0.0});
        expectNear(post.vectorAB(), AcGeVector3d(0.0, 10.0, 0.0));
        EXPECT_DOUBLE_EQ(post.rotation(), 0.0);
        EXPECT_DOUBLE_EQ(post.bendAngle(), 0.7);
        EXPECT_FALSE(post.hasBend());
        EXPECT_EQ(post.signChain().chainType(), kSignChain);
        EXPECT_EQ(post.lampChain(0).chainType(), kPostLampChain);
        expectNear(post.lampChain(0).position(), {0.5, 0.0, 0.0});
        EXPECT_EQ(post.postText().text, version >= 6 ? L"felirat" : L"");
        EXPECT_EQ(post.exchangeId(), version >= 2 ? 99u : 0u);
        EXPECT_EQ(post.lampChainCount(), 1);
        EXPECT_STREQ(post.baseBlock().descriptor().blockFile, L"Oszlopok\\Jelzőoszlop.dwg");
        EXPECT_DOUBLE_EQ(post.baseBlock().scaleFactor(), 1.0);
        EXPECT_DOUBLE_EQ(post.basePointD(), 1.0);
        EXPECT_EQ(post.recordedScales(), std::vector<int>{1000});
    }
}

TEST_F(PostFiling, a_version_5_post_gets_its_anchor) {
    TrfcPost post;
    read({5, 0, false}, post);
    expectNear(post.pointE(), {-5.5, 0.0, 0.0}); // no arm to the right: the note stands left
}

TEST_F(PostFiling, a_version_6_post_keeps_its_anchor_and_gets_a_foot) {
    TrfcPost post;
    read({6, 1, false}, post);
    expectNear(post.pointE(), {3.0, 3.0, 0.0});
    EXPECT_STREQ(post.baseBlock().descriptor().blockFile, L"Oszlopok\\$Jelzőoszlop.dwg");
}

TEST_F(PostFiling, a_record_of_an_earlier_version_keeps_it_and_leaves_E_alone) {
    TrfcPost post;
    read({5, 0, true}, post);
    const AcGePoint3d e = post.pointE();
    setScale(1000);
    post.setScale(1000);
    expectNear(post.pointB(), {0.0, 20.0, 0.0});
    expectNear(post.pointE(), e);
}

TEST_F(PostFiling, a_record_of_version_6_brings_its_E) {
    TrfcPost post;
    read({6, 0, true}, post);
    setScale(1000);
    post.setScale(1000);
    expectNear(post.pointE(), {9.0, 9.0, 0.0});
    expectNear(post.pointD(), {0.0, 40.0, 0.0});
    expectNear(post.vectorAB(), AcGeVector3d(0.0, 20.0, 0.0));
    EXPECT_DOUBLE_EQ(post.bendAngle(), 0.7);
}

TEST_F(PostFiling, a_copied_record_keeps_the_version_it_has) {
    const TrfcPost post;
    for (Adesk::UInt32 version = 0; version <= 7; ++version) {
        SCOPED_TRACE(version);
        AcDbDeepCloneFiler source, target;
        EarlierPost{version, 0, true}.writeScale(source);
        source.seek(0, AcDb::kSeekFromStart);
        ASSERT_EQ(post.copyFiler(&source, &target), Acad::eOk);
        target.seek(0, AcDb::kSeekFromStart);
        Adesk::UInt32 copied = 99;
        target.readUInt32(&copied);
        EXPECT_EQ(copied, version);
        AcGePoint3d point;
        EXPECT_EQ(target.readPoint3d(&point) == Acad::eOk, version > 0); // version 0 has no fields
    }
}

TEST_F(PostFiling, the_foot_of_an_earlier_file_follows_its_state) {
    const std::pair<Adesk::UInt16, const wchar_t*> kFiles[] = {{Adesk::UInt16{0}, L"Oszlopok\\Jelzőoszlop.dwg"},
                                                              {Adesk::UInt16{1}, L"Oszlopok\\$Jelzőoszlop.dwg"},
                                                              {Adesk::UInt16{2}, L"Oszlopok\\$$Jelzőoszlop.dwg"},
                                                              {Adesk::UInt16{3}, L"Oszlopok\\Idegen oszlop.dwg"},
                                                              {Adesk::UInt16{4}, L"Error.dwg"},
                                                              {Adesk::UInt16{7}, L"Error.dwg"}};
    for (const auto& [type, file] : kFiles) {
        SCOPED_TRACE(type);
        TrfcPost post;
        read({6, type, false}, post);
        EXPECT_STREQ(post.baseBlock().descriptor().blockFile, file);
        EXPECT_EQ(post.postData().postType, type == 3 ? 0 : type);
    }
}

TEST_F(PostFiling, a_later_version_asks_for_a_proxy_and_version_0_holds_nothing) {
    for (const Adesk::UInt32 version : {8u, 0u}) {
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        AcDbLine().AcDbEntity::dwgOutFields(&memory);
        memory.writeUInt32(7);
        memory.writeInt16(0);
        memory.writeUInt32(version);
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcPost post;
        EXPECT_EQ(post.dwgInFields(&memory), version == 8 ? Acad::eMakeMeProxy : Acad::eOk);
        EXPECT_EQ(post.placementPhase(), 0);
    }
}

TEST_F(PostFiling, a_scale_record_of_a_later_version_is_refused) {
    const TrfcPost post;
    AcDbDeepCloneFiler source, target;
    source.writeUInt32(8);
    source.seek(0, AcDb::kSeekFromStart);
    EXPECT_EQ(post.copyFiler(&source, &target), Acad::eMakeMeProxy);
    source.seek(0, AcDb::kSeekFromStart);
    TrfcPost other;
    EXPECT_EQ(other.dwgInScale(&source), Acad::eMakeMeProxy);
}

TEST_F(PostFiling, a_truncated_record_is_an_error_and_no_crash) {
    const auto post = fullPost();
    for (int keep = 0; keep < 200; keep += 7) {
        // Each write call of the record up to `keep`, then the end.
        AcDbDeepCloneFiler whole(AcDb::kCopyFiler);
        post->dwgOut(&whole);
        AcDbDeepCloneFiler cut(AcDb::kCopyFiler);
        cut.writeUInt8(0);
        AcDbLine().AcDbEntity::dwgOutFields(&cut);
        cut.writeUInt32(7);
        for (int i = 0; i < keep; ++i)
            cut.writeInt16(static_cast<Adesk::Int16>(i));
        cut.seek(0, AcDb::kSeekFromStart);
        TrfcPost copy;
        EXPECT_NE(copy.dwgIn(&cut), Acad::eOk);
    }
}
