// Posts and road markings through a drawing file: saved, opened, the same filing calls.
#include "DwgCodec.h"
#include "TestSupport.h"
#include "TrfcBlockEnt.h"
#include "TrfcClasses.h"
#include "TrfcDocSettings.h"
#include "TrfcLamp.h"
#include "TrfcPost.h"
#include "TrfcTable.h"

#include "AcDbDatabase.h"
#include "AcUtText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>

namespace {

void setDefaults() {
    using TrfcAppSettings::setDocDefault;
    constexpr std::pair<const ACHAR*, const ACHAR*> kDefaults[] = {
        {DOC_CURRENT_SCALE, L"500"},      {DOC_BASEPOINTD, L"0.002"},       {DOC_POST_ALPHA0, L"45"},         {DOC_POST_MIN_AB, L"0.01"},
        {DOC_POST_MIN_CD, L"0.006"},      {DOC_EXISTING_TABLE_D, L"0.008"}, {DOC_PLANNED_TABLE_D, L"0.012"},  {DOC_EXISTING_LAMP_D, L"0.004"},
        {DOC_PLANNED_LAMP_D, L"0.006"},   {DOC_ANNO_HEIGHT, L"0.0025"},     {DOC_ANNO_MIN_DIST, L"0.02"},     {DOC_ANNO_TYPE, L"Standard"},
        {DOC_ANNO_LINE_TYPE, L"ByLayer"},
    };
    for (const auto& [key, value] : kDefaults)
        setDocDefault(key, value);
}

std::vector<std::wstring> filed(const AcDbObject& object) {
    AcDbRecordingFiler filer;
    object.dwgOut(&filer);
    return filer.lines();
}

class PostRoundTrip : public testing::Test {
protected:
    PostRoundTrip() {
        static const bool registered = [] {
            registerTrfcClasses();
            return true;
        }();
        EXPECT_TRUE(registered);
        dwgInstallCodec();
        setDefaults();
        acdbHostApplicationServices()->setWorkingDatabase(&drawing);
    }
    ~PostRoundTrip() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    AcDbObjectId add(AcDbEntity* entity) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }
    // A box with an attribute; the definition is made when it is first asked for.
    S_BLOCK_DESCRIPTOR symbol() {
        AcDbBlockTable* table = nullptr;
        drawing.getBlockTable(table, AcDb::kForWrite);
        auto* record = new AcDbBlockTableRecord;
        record->setName(acFormat(L"jel%d", table->recordIds().length()).c_str());
        S_BLOCK_DESCRIPTOR made;
        made.blockKey = made.blockFile = L"jel.dwg";
        table->add(made.blockId, record);
        table->close();
        auto* box = new AcDbPolyline(4);
        for (const AcGePoint2d& corner : {AcGePoint2d(-0.5, 0.0), AcGePoint2d(0.5, 0.0), AcGePoint2d(0.5, 1.0), AcGePoint2d(-0.5, 1.0)})
            box->addVertexAt(box->numVerts(), corner);
        auto* attribute = new AcDbAttributeDefinition;
        attribute->setTag(L"KM");
        attribute->setTextString(L"0");
        attribute->setHeight(0.2);
        attribute->setPosition({0.1, 0.1, 0.0});
        for (AcDbEntity* entity : {static_cast<AcDbEntity*>(box), static_cast<AcDbEntity*>(attribute)}) {
            record->appendAcDbEntity(entity);
            entity->close();
        }
        record->close();
        return made;
    }
    // With signs, a lamp, a note, attribute values and two scales.
    TrfcPost* newPost() {
        auto* post = new TrfcPost;
        const AcGePoint3d origin;
        post->baseBlock().init(symbol(), origin, 0.0, 1.0);
        post->setPointA({1.0, 2.0, 0.0});
        post->setPointB({1.0, 12.0, 0.0});
        post->setPointD({7.0, 22.0, 0.0}, true);
        post->resetAnnotation();
        for (const wchar_t* text : {L"51. sz.", L"őű"}) {
            auto* table = new TrfcTable(symbol());
            table->setAttributeText(L"KM", text);
            table->setUserParam(L"Gyártó", L"Kft");
            post->signChain().appendBlockUpward(table);
        }
        post->lampChain(post->addLampChain({5.0, 2.0, 0.0})).appendBlockDownward(new TrfcLamp(symbol()));
        post->postText().text = L"Árvíztűrő";
        post->setPlacementPhase(5);
        for (const int scale : {1000, 500}) {
            TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, scale);
            post->setScale(scale);
        }
        return post;
    }

    AcDbDatabase drawing;
};

} // namespace

TEST_F(PostRoundTrip, a_post_of_two_scales_comes_back_with_the_same_filing_calls) {
    const AcDbObjectId id = add(newPost());
    const AcDbHandle handle = id.handle();
    std::vector<std::wstring> before;
    {
        const AcDbObjectPointer<TrfcPost> post(id);
        before = filed(*post.object());
    }
    const std::wstring path = testTempDir() + L"\\post.dwg";
    ASSERT_EQ(drawing.saveAs(path.c_str()), Acad::eOk) << acToUtf8(drawing.lastError());

    AcDbDatabase opened(false, true);
    ASSERT_EQ(opened.readDwgFile(path.c_str()), Acad::eOk) << acToUtf8(opened.lastError());
    acdbHostApplicationServices()->setWorkingDatabase(&opened);
    AcDbObjectId again;
    ASSERT_EQ(opened.getAcDbObjectId(again, false, handle), Acad::eOk);
    const AcDbObjectPointer<TrfcPost> post(again);
    ASSERT_TRUE(post) << "no post under its handle";
    EXPECT_EQ(filed(*post.object()), before);
    EXPECT_EQ(post->recordedScales(), (std::vector<int>{500, 1000}));
    const TrfcBlock& table = *post->signChain()[1];
    EXPECT_STREQ(table.attributeAt(0)->textStringConst(), L"őű");
    EXPECT_EQ(table.attributeAt(0)->tagConst(), L"KM");
    const AcGePoint3d place = table.blockRef().blockTransform() * AcGePoint3d(0.1, 0.1, 0.0);
    EXPECT_LT(table.attributeAt(0)->position().distanceTo(place), 1e-9);
}

TEST_F(PostRoundTrip, a_post_that_stands_before_its_symbols_in_the_file_finds_their_attributes) {
    const AcDbObjectId id = add(new TrfcPost);
    const AcDbHandle handle = id.handle();
    const std::unique_ptr<TrfcPost> content(newPost());
    content->setDatabaseDefaults(&drawing);
    std::vector<std::wstring> before;
    {
        const AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
        post->copyFromClone(content.get());
        before = filed(*post.object());
    }
    const std::wstring path = testTempDir() + L"\\early.dwg";
    ASSERT_EQ(drawing.saveAs(path.c_str()), Acad::eOk) << acToUtf8(drawing.lastError());
    AcDbDatabase opened(false, true);
    ASSERT_EQ(opened.readDwgFile(path.c_str()), Acad::eOk) << acToUtf8(opened.lastError());
    acdbHostApplicationServices()->setWorkingDatabase(&opened);
    AcDbObjectId again;
    ASSERT_EQ(opened.getAcDbObjectId(again, false, handle), Acad::eOk);
    const AcDbObjectPointer<TrfcPost> post(again);
    ASSERT_TRUE(post);
    EXPECT_EQ(filed(*post.object()), before);
    const AcDbAttribute& attribute = *post->signChain()[0]->attributeAt(0);
    EXPECT_EQ(attribute.tagConst(), L"KM");
    EXPECT_STREQ(attribute.textStringConst(), L"51. sz.");
    const AcGePoint3d place = post->signChain()[0]->blockRef().blockTransform() * AcGePoint3d(0.1, 0.1, 0.0);
    EXPECT_LT(attribute.position().distanceTo(place), 1e-9);
}

TEST_F(PostRoundTrip, a_road_marking_comes_back_with_the_same_filing_calls) {
    auto* marking = new TrfcBlockEnt(symbol(), {3.0, 4.0, 0.0}, 0.5, 2.0);
    marking->setColorIndex(5);
    marking->setOverlayBlock(symbol().blockId);
    const AcDbObjectId id = add(marking);
    const AcDbHandle handle = id.handle();
    std::vector<std::wstring> before;
    {
        const AcDbObjectPointer<TrfcBlockEnt> resident(id);
        before = filed(*resident.object());
    }
    const std::wstring path = testTempDir() + L"\\marking.dwg";
    ASSERT_EQ(drawing.saveAs(path.c_str()), Acad::eOk) << acToUtf8(drawing.lastError());
    AcDbDatabase opened(false, true);
    ASSERT_EQ(opened.readDwgFile(path.c_str()), Acad::eOk) << acToUtf8(opened.lastError());
    acdbHostApplicationServices()->setWorkingDatabase(&opened);
    AcDbObjectId again;
    ASSERT_EQ(opened.getAcDbObjectId(again, false, handle), Acad::eOk);
    const AcDbObjectPointer<TrfcBlockEnt> read(again);
    ASSERT_TRUE(read) << "no marking under its handle";
    EXPECT_EQ(filed(*read.object()), before);
}

// ---- any post ------------------------------------------------------------------------------------
namespace {
class PostFile : public PostRoundTrip {
public:
    void TestBody() override {}
    std::vector<std::wstring> afterAnyEdits() {
        AcDbObjectPointer<TrfcPost> post(mId, AcDb::kForWrite);
        const int steps = *rc::gen::inRange(0, 10);
        for (int i = 0; i < steps; ++i) {
            if (*rc::gen::inRange(0, 3) == 0)
                visit(*post.object(), *rc::gen::element(100, 200, 500, 1000, 30000));
            else
                dragAnyGrip(*post.object());
        }
        return filed(*post.object());
    }
    std::vector<std::wstring> afterTheFile() {
        const AcDbHandle handle = mId.handle();
        const std::wstring path = mFolder + L"\\any.dwg";
        RC_ASSERT(drawing.saveAs(path.c_str()) == Acad::eOk);
        AcDbDatabase opened(false, true);
        RC_ASSERT(opened.readDwgFile(path.c_str()) == Acad::eOk);
        acdbHostApplicationServices()->setWorkingDatabase(&opened);
        AcDbObjectId id;
        RC_ASSERT(opened.getAcDbObjectId(id, false, handle) == Acad::eOk);
        const AcDbObjectPointer<TrfcPost> post(id);
        RC_ASSERT(!!post);
        return filed(*post.object());
    }

private:
    static void visit(TrfcPost& post, int scale) {
        TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, scale);
        post.setScale(scale);
    }
    static void dragAnyGrip(TrfcPost& post) {
        AcDbGripDataPtrArray grips;
        post.getGripPoints(grips, 1.0, 5, AcGeVector3d::kZAxis, 0);
        AcDbVoidPtrArray data;
        data.append(grips[*rc::gen::inRange(0, grips.length())]->appData());
        post.moveGripPointsAt(data, {*rc::gen::inRange(-4000, 4000) / 100.0, *rc::gen::inRange(-4000, 4000) / 100.0, 0.0}, 0);
        post.clearActiveGrip();
        for (AcDbGripData* const grip : grips)
            delete grip;
    }
    std::wstring mFolder = testTempDir();
    AcDbObjectId mId = add(newPost());
};
} // namespace

RC_GTEST_PROP(PostFiles, a_post_after_any_drags_and_scales_comes_back_from_its_file_with_the_same_filing_calls, ()) {
    PostFile world;
    const auto before = world.afterAnyEdits();
    RC_ASSERT(world.afterTheFile() == before);
}
