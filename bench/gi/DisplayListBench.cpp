// Cost of building, measuring and flattening the picture of ten thousand posts: each a foot and
// four plates as references of shared symbols, an arm of three lines, a leader and a text.
#include "GiTestDrawing.h"

#include <benchmark/benchmark.h>

namespace {
constexpr int kPosts = 10000;

void drawSymbol(AcGiWorldDraw& wd) {
    AcGiSubEntityTraits& traits = wd.subEntityTraits();
    traits.setColor(0);
    const AcGePoint3d frame[] = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
    wd.geometry().polygon(4, frame);
    traits.setFillType(kAcGiFillAlways);
    wd.geometry().circle({}, 0.9, AcGeVector3d::kZAxis);
    traits.setFillType(kAcGiFillNever);
    for (int i = 0; i < 5; ++i)
        drawLine(wd, {-0.8, -0.8 + 0.4 * i, 0}, {0.8, -0.8 + 0.4 * i, 0});
    wd.geometry().text({-0.5, -0.2, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"50", {L"txt", 0.5});
}

class Plan {
public:
    Plan() {
        for (int i = 0; i < 6; ++i)
            mSymbols.push_back(std::make_unique<TestDrawable>(drawSymbol, true));
        for (int i = 0; i < kPosts; ++i)
            mPosts.push_back(std::make_unique<TestDrawable>([this, i](AcGiWorldDraw& wd) { drawPost(wd, i); }));
    }
    GiDisplayList build() const {
        GiDisplayListBuilder builder;
        for (const auto& post : mPosts)
            builder.add(*post);
        return builder.take();
    }
    AcDbExtents measure() const {
        AcDbExtents box;
        for (const auto& post : mPosts)
            box.addExt(giExtentsOf(*post));
        return box;
    }

private:
    void drawPost(AcGiWorldDraw& wd, int i) const {
        const AcGePoint3d foot(i % 100 * 20.0, i / 100 * 20.0, 0.0);
        AcGePoint3d at = foot;
        for (int k = 0; k < 3; ++k) {
            const AcGePoint3d next = at + AcGeVector3d(2.0, 1.0, 0.0);
            drawLine(wd, at, next);
            at = next;
        }
        for (int k = 0; k < 5; ++k) {
            wd.geometry().pushModelTransform(AcGeMatrix3d::translation((k == 0 ? foot : at + AcGeVector3d(0, 2.0 * k, 0)).asVector()));
            wd.geometry().draw(mSymbols[static_cast<std::size_t>((i + k) % 6)].get());
            wd.geometry().popModelTransform();
        }
        drawLine(wd, foot, foot + AcGeVector3d(-3, -3, 0));
        wd.geometry().text(foot + AcGeVector3d(-3, -3, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"12+345 Őr", {L"txt", 1.0});
    }
    std::vector<std::unique_ptr<TestDrawable>> mSymbols, mPosts;
};
const Plan& plan() {
    static const Plan made;
    return made;
}

struct CountingSink : GiPainterSink {
    std::size_t points = 0;
    void stroke(const std::vector<AcGePoint3d>& line, bool, const GiStyle&) override { points += line.size(); }
    void fill(const AcGiFillLoops& loops, const GiStyle&) override {
        for (const auto& loop : loops)
            points += loop.size();
    }
};

void buildList(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(plan().build());
}
void flattenAll(benchmark::State& state) {
    const GiDisplayList list = plan().build();
    for (auto _ : state) {
        CountingSink sink;
        giFlatten(list, TestResolver(), 0.05, sink);
        benchmark::DoNotOptimize(sink.points);
    }
}
void flattenWindow(benchmark::State& state) {
    const GiDisplayList list = plan().build();
    const AcDbExtents window({500, 500, 0}, {600, 600, 0});
    for (auto _ : state) {
        CountingSink sink;
        giFlatten(list, TestResolver(), 0.05, sink, &window);
        benchmark::DoNotOptimize(sink.points);
    }
}
void measureAll(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(plan().measure());
}
} // namespace

BENCHMARK(buildList)->Unit(benchmark::kMillisecond);
BENCHMARK(flattenAll)->Unit(benchmark::kMillisecond);
BENCHMARK(flattenWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(measureAll)->Unit(benchmark::kMillisecond);
