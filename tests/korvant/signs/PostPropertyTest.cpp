// Whatever its grips do, a post keeps its minimum lengths and files back unchanged.
#include "SignsFixture.h"

#include <rapidcheck/gtest.h>

namespace {
class PostProperty : public SignsFixture {
public:
    void TestBody() override {}
    std::unique_ptr<TrfcPost> make() {
        auto post = newPost(2);
        post->postText().text = L"felirat";
        post->lampChain(post->addLampChain({5.0, 0.0, 0.0})).appendBlockDownward(newLamp());
        return post;
    }
    void visit(TrfcPost& post, int scale) const {
        setScale(scale);
        post.setScale(scale);
    }
};

double anyOffset() {
    return *rc::gen::inRange(-4000, 4000) / 100.0;
}

void dragAnything(TrfcPost& post) {
    const std::wstring name = *rc::gen::element<std::wstring>(L"grip1", L"grip2", L"grip3", L"grip4", L"grip5", L"grip6", L"gripLampRot");
    if (Grips(post).find(name) != nullptr)
        dragGrip(post, name, {anyOffset(), anyOffset(), 0.0});
    post.clearActiveGrip();
}
} // namespace

RC_GTEST_PROP(PostProperties, drags_keep_the_arm_and_the_stack_whole, ()) {
    PostProperty world;
    const auto post = world.make();
    const int drags = *rc::gen::inRange(1, 10);
    for (int i = 0; i < drags; ++i) {
        dragAnything(*post);
        constexpr double kSlack = 1e-6;
        RC_ASSERT(post->vectorAB().length() >= 5.0 - kSlack);
        RC_ASSERT((post->pointB() - post->pointA()).isEqualTo(post->vectorAB(), AcGeTol()) || ((post->pointB() - post->pointA()) - post->vectorAB()).length() < kSlack);
        RC_ASSERT((post->pointD() - post->pointC()).length() >= 3.0 - kSlack);
        RC_ASSERT(post->pointE().distanceTo(post->pointA()) >= 0.5 - kSlack);
        RC_ASSERT(post->signChain().position().distanceTo(post->pointD()) < kSlack);
    }
    expectLaidWithoutGap(post->signChain());
    RC_ASSERT(!testing::Test::HasFailure());
}

RC_GTEST_PROP(PostProperties, files_and_reads_back_unchanged_at_any_scales, ()) {
    PostProperty world;
    const auto post = world.make();
    const int steps = *rc::gen::inRange(1, 8);
    for (int i = 0; i < steps; ++i) {
        world.visit(*post, *rc::gen::element(100, 200, 500, 1000));
        dragAnything(*post);
    }
    const std::unique_ptr<TrfcPost> copy(post->clone());
    RC_ASSERT(filed(*copy) == filed(*post));
    const std::unique_ptr<TrfcPost> again(copy->clone());
    RC_ASSERT(filed(*again) == filed(*post));
}
