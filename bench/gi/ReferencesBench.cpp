// Regeneration of fifty thousand block references of a real drawing: a foot and four plates for each
// of ten thousand posts.
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbSymbolTables.h"

#include <benchmark/benchmark.h>

namespace {
constexpr int kBlocks = 6, kReferences = 50000;

void fillSymbol(AcDbBlockTableRecord& block) {
    const auto append = [&](AcDbEntity* entity) {
        block.appendAcDbEntity(entity);
        entity->close();
    };
    for (int i = 0; i < 5; ++i)
        append(new AcDbLine({-0.8, -0.8 + 0.4 * i, 0}, {0.8, -0.8 + 0.4 * i, 0}));
    append(new AcDbCircle({}, AcGeVector3d::kZAxis, 0.9));
    append(new AcDbText({-0.5, -0.2, 0}, L"50", AcDbObjectId::kNull, 0.5));
}

class Drawing {
public:
    Drawing() {
        acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
        AcDbBlockTable* table = nullptr;
        mDatabase.getBlockTable(table, AcDb::kForWrite);
        for (int i = 0; i < kBlocks; ++i) {
            auto* block = new AcDbBlockTableRecord;
            block->setName((L"SYMBOL" + std::to_wstring(i)).c_str());
            table->add(mBlocks[i], block);
            fillSymbol(*block);
            block->close();
        }
        table->close();
        const AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase.modelSpaceId(), AcDb::kForWrite);
        for (int i = 0; i < kReferences; ++i) {
            auto* reference = new AcDbBlockReference({i % 200 * 5.0, i / 200 * 5.0, 0.0}, mBlocks[i % kBlocks]);
            reference->setRotation(i * 0.01);
            space->appendAcDbEntity(reference);
            reference->close();
        }
    }
    ~Drawing() { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }
    GiDisplayList regenerate() const {
        GiDisplayListBuilder builder;
        const AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase.modelSpaceId());
        for (const AcDbObjectId id : space->entityIds())
            if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
                builder.add(*entity.object());
        return builder.take();
    }
    AcDbExtents measure() const {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase.modelSpaceId());
        AcDbExtents box, one;
        for (const AcDbObjectId id : space->entityIds())
            if (const AcDbObjectPointer<AcDbEntity> entity(id); entity && entity->getGeomExtents(one) == Acad::eOk)
                box.addExt(one);
        return box;
    }

private:
    AcDbDatabase mDatabase;
    AcDbObjectId mBlocks[kBlocks];
};
const Drawing& drawing() {
    static const Drawing made;
    return made;
}

void regenerateReferences(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing().regenerate());
}
void measureReferences(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing().measure());
}
} // namespace

BENCHMARK(regenerateReferences)->Unit(benchmark::kMillisecond);
BENCHMARK(measureReferences)->Unit(benchmark::kMillisecond);
