// Cost of settings and of ten thousand posts of four plates each: regenerate, switch the scale,
// check the order, change the state, save, open. The symbols are drawn here, so that the program needs no library.
#include "AcDbAnnotationScale.h"
#include "AcDbBlockReference.h"
#include "AcEdAds.h"
#include "AcGiReceivers.h"
#include "AcUtText.h"
#include "AfxDialogDriver.h"
#include "TrfcClasses.h"
#include "TrfcBlockLoader.h"
#include "TrfcDocSettings.h"
#include "TrfcDrawingUtils.h"
#include "TrfcPost.h"
#include "TrfcScaleTracking.h"
#include "TrfcStartup.h"
#include "TrfcStateChangeData.h"
#include "TrfcTable.h"
#include "applyStateChange.h"
#include "checkSignOrder.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace {

constexpr int kPosts = 10000;

void setDefaults() {
    using TrfcAppSettings::setDocDefault;
    setDocDefault(DOC_CURRENT_SCALE, L"500");
    setDocDefault(DOC_BASEPOINTD, L"0.003");
    setDocDefault(DOC_POST_ALPHA0, L"45");
    setDocDefault(DOC_POST_MIN_AB, L"0.010");
    setDocDefault(DOC_POST_MIN_CD, L"0.005");
    setDocDefault(DOC_ANNO_HEIGHT, L"0.0025");
    setDocDefault(DOC_ANNO_MIN_DIST, L"0.02");
    setDocDefault(DOC_ANNO_TYPE, L"Standard");
    setDocDefault(DOC_ANNO_LINE_TYPE, L"ByLayer");
    setDocDefault(DOC_ANNO_LINE_WEIGHT, L"-1");
    setDocDefault(DOC_ANNO_COLOR, L"256");
    setDocDefault(DOC_ANNO_LINE_COLOR, L"256");
    setDocDefault(DOC_EXISTING_TABLE_D, L"0.008");
    setDocDefault(DOC_PLANNED_TABLE_D, L"0.010");
}

// A symbol as the library has them: a disc, a ring, a bar and two lines.
void saveSymbol(const std::wstring& path) {
    AcDbDatabase symbol(true, true);
    AcDbObjectPointer<AcDbBlockTableRecord> space(symbol.modelSpaceId(), AcDb::kForWrite);
    const auto add = [&](AcDbEntity* entity) {
        entity->setDatabaseDefaults(&symbol);
        space->appendAcDbEntity(entity);
        entity->close();
    };
    add(new AcDbCircle(AcGePoint3d(0, 0.5, 0), AcGeVector3d::kZAxis, 0.5));
    add(new AcDbCircle(AcGePoint3d(0, 0.5, 0), AcGeVector3d::kZAxis, 0.4));
    auto* bar = new AcDbSolid;
    const AcGePoint3d corners[] = {{-0.3, 0.45, 0}, {0.3, 0.45, 0}, {-0.3, 0.55, 0}, {0.3, 0.55, 0}};
    for (int i = 0; i < 4; ++i)
        bar->setPointAt(i, corners[i]);
    add(bar);
    add(new AcDbLine(AcGePoint3d(-0.3, 0.2, 0), AcGePoint3d(0.3, 0.8, 0)));
    add(new AcDbLine(AcGePoint3d(-0.3, 0.8, 0), AcGePoint3d(0.3, 0.2, 0)));
    space.close();
    symbol.saveAs(path.c_str());
}

// A folder of symbols, made once; removed when the program ends.
struct Library {
    Library() {
        std::string pattern = (std::filesystem::temp_directory_path() / "korvant-bench-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        for (const wchar_t* name : {L"post", L"$$post", L"a", L"b", L"c", L"d", L"TrfcTableEliminate"})
            saveSymbol(wide() + L"/" + name + L".dwg");
        TrfcAppSettings::setAppString(APP_SYMBOL_BASE_PATH, wide());
        TrfcAppSettings::setAppString(APP_POSTS_BASE_PATH, wide());
        TrfcAppSettings::setAppString(APP_TABLES_BASE_PATH, wide());
        TrfcAppSettings::setDocDefault(DOC_POST_DEFAULT_DWG, L"post.dwg");
    }
    ~Library() { std::filesystem::remove_all(folder); }
    std::wstring wide() const { return acFromUtf8(folder); }
    std::string folder;
};
Library& library() {
    static Library instance;
    return instance;
}

void addPost(AcDbBlockTableRecord& space, const S_BLOCK_DESCRIPTOR& foot, const S_BLOCK_DESCRIPTOR (&plates)[4], int index) {
    auto post = std::make_unique<TrfcPost>();
    const AcGePoint3d a((index % 100) * 30.0, (index / 100) * 30.0, 0.0);
    post->baseBlock().init(foot, AcGePoint3d::kOrigin, 0.0, post->basePointD());
    post->setPointA(a);
    post->setPointB(a + AcGeVector3d(0, 6, 0));
    post->setPointD(a + AcGeVector3d(5, 10, 0), true);
    for (const S_BLOCK_DESCRIPTOR& plate : plates)
        post->signChain().appendBlockUpward(new TrfcTable(plate));
    post->setPlacementPhase(5);
    space.appendAcDbEntity(post.get());
    post.release()->close();
}

// A drawing of ten thousand posts, made once.
AcDbDatabase& drawing() {
    static std::unique_ptr<AcDbDatabase> database;
    if (database == nullptr) {
        library();
        database = std::make_unique<AcDbDatabase>();
        acdbHostApplicationServices()->setWorkingDatabase(database.get());
        const std::wstring folder = library().wide();
        const S_BLOCK_DESCRIPTOR foot = loadBlockTemplate(folder, L"post.dwg");
        const S_BLOCK_DESCRIPTOR plates[4] = {loadBlockTemplate(folder, L"d.dwg"), loadBlockTemplate(folder, L"c.dwg"), loadBlockTemplate(folder, L"b.dwg"),
                                              loadBlockTemplate(folder, L"a.dwg")};
        AcDbObjectPointer<AcDbBlockTableRecord> space(database->modelSpaceId(), AcDb::kForWrite);
        for (int i = 0; i < kPosts; ++i)
            addPost(*space.object(), foot, plates, i);
    }
    acdbHostApplicationServices()->setWorkingDatabase(database.get());
    return *database;
}

void settingRead(benchmark::State& state) {
    drawing();
    for (auto _ : state)
        benchmark::DoNotOptimize(TrfcDocSettings::getDocDouble(DOC_ANNO_HEIGHT));
}

void addPosts(GiDisplayListBuilder& builder, const AcDbDatabase& database) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForRead);
    for (const AcDbObjectId id : space->entityIds()) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        builder.add(*entity.object(), entity->startTraits());
    }
}

void makePicture(AcDbDatabase& database) {
    GiDisplayListBuilder builder;
    addPosts(builder, database);
    benchmark::DoNotOptimize(builder.list().primitives.size());
}

void regeneratePosts(benchmark::State& state) {
    AcDbDatabase& database = drawing();
    for (auto _ : state)
        makePicture(database);
}

// The scale of the drawing changes in each round; then comes what the round is about besides.
template <class Then> void switchScales(benchmark::State& state, const Then& then) {
    AcDbDatabase& database = drawing();
    AcDbAnnotationScale scale;
    scale.setPaperUnits(1.0);
    bool to200 = true;
    for (auto _ : state) {
        scale.setDrawingUnits(to200 ? 0.2 : 0.5);
        to200 = !to200;
        database.startUndoRecord();
        switchScale(scale);
        then(database);
    }
    scale.setDrawingUnits(0.5);
    switchScale(scale);
}

void switchScaleOfPosts(benchmark::State& state) {
    switchScales(state, [](AcDbDatabase&) {});
}

// What a user waits for: the posts change, and the picture of the drawing is made anew.
void changeScaleAndRegenerate(benchmark::State& state) {
    switchScales(state, makePicture);
}

// A change of scale and its undo: the drawing is as it was after each round.
void undoScaleChange(benchmark::State& state) {
    AcDbDatabase& database = drawing();
    AcDbAnnotationScale scale;
    scale.setPaperUnits(1.0);
    scale.setDrawingUnits(0.2);
    for (auto _ : state) {
        state.PauseTiming();
        database.startUndoRecord();
        switchScale(scale);
        state.ResumeTiming();
        if (!database.undo())
            state.SkipWithError("nothing to undo");
    }
}

void savePosts(benchmark::State& state) {
    AcDbDatabase& database = drawing();
    const std::wstring path = library().wide() + L"/posts.dwg";
    for (auto _ : state)
        if (database.saveAs(path.c_str()) != Acad::eOk)
            state.SkipWithError("saveAs failed");
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(acToUtf8(path)));
}

void openPosts(benchmark::State& state) {
    AcDbDatabase& original = drawing();
    const std::wstring path = library().wide() + L"/posts.dwg";
    original.saveAs(path.c_str());
    for (auto _ : state) {
        AcDbDatabase opened(false, true);
        acdbHostApplicationServices()->setWorkingDatabase(&opened);
        if (opened.readDwgFile(path.c_str()) != Acad::eOk)
            state.SkipWithError("readDwgFile failed");
        acdbHostApplicationServices()->setWorkingDatabase(&original);
    }
}

template <class Change> void changePosts(AcDbDatabase& database, const Change& change) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForRead);
    for (const AcDbObjectId id : space->entityIds()) {
        AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
        change(*post.object());
    }
}

// The window, the walk and the box that says that nothing was found.
void checkOrderOfPosts(benchmark::State& state) {
    drawing();
    for (auto _ : state)
        checkSignOrder();
}

// Every post at fault: ten thousand rows in the report.
void checkOrderOfFaultyPosts(benchmark::State& state) {
    AcDbDatabase& database = drawing();
    const auto swapLowest = [](TrfcPost& post) {
        int index = 0;
        post.signChain().moveUpBlock(0, &index);
    };
    changePosts(database, swapLowest);
    for (auto _ : state) {
        checkSignOrder();
        state.PauseTiming();
        AfxCancelAllDialogs();
        state.ResumeTiming();
    }
    changePosts(database, swapLowest);
}

// Every post and every plate goes from existing to to be removed.
void changeStateOfPosts(benchmark::State& state) {
    AcDbDatabase& database = drawing();
    auto data = std::make_unique<TrfcStateChangeData>();
    data->post.existingToBeRemoved = data->sign.existingToBeRemoved = true;
    setStateChangeData(std::move(data));
    for (auto _ : state) {
        database.startUndoRecord();
        applyStateChange();
        state.PauseTiming();
        changePosts(database, [&state](TrfcPost& post) {
            const TrfcTypedBlock* const top = TrfcTypedBlock::cast(post.signChain().getAt(post.signChain().size() - 1));
            if (post.postData().postType != kBlockToBeRemoved || top->blockType() != kBlockToBeRemoved)
                state.SkipWithError("a post or its plate kept its state");
            post.setPostType(kBlockExisting);
            for (int i = 0; i < post.signChain().size(); ++i)
                post.signChain().setBlockType(i, kBlockExisting);
        });
        state.ResumeTiming();
    }
    setStateChangeData(std::make_unique<TrfcStateChangeData>());
}

BENCHMARK(settingRead);
BENCHMARK(regeneratePosts)->Unit(benchmark::kMillisecond);
BENCHMARK(switchScaleOfPosts)->Unit(benchmark::kMillisecond);
BENCHMARK(checkOrderOfPosts)->Unit(benchmark::kMillisecond);
BENCHMARK(checkOrderOfFaultyPosts)->Unit(benchmark::kMillisecond);
BENCHMARK(changeStateOfPosts)->Unit(benchmark::kMillisecond);
BENCHMARK(changeScaleAndRegenerate)->Unit(benchmark::kMillisecond);
BENCHMARK(undoScaleChange)->Unit(benchmark::kMillisecond);
BENCHMARK(savePosts)->Unit(benchmark::kMillisecond);
BENCHMARK(openPosts)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    setDefaults();
    acSetPrintSink([](std::wstring_view) {});
    registerTrfcClasses();
    AfxInitToolkit(true);
    registerModuleResources();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
