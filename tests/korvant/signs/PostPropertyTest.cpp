// Whatever its grips do at whatever scale, a post keeps its foot, its minimum lengths and its stacks, and
// files back unchanged.
#include "SignsFixture.h"

#include <rapidcheck/gtest.h>

#include <map>

namespace {
constexpr double kSlack = 1e-6; // a long row of turns adds up

class PostProperty : public SignsFixture {
public:
    PostProperty() {
        auto post = newPost(2);
        post->postText().text = L"felirat";
        post->lampChain(post->addLampChain({5.0, 0.0, 0.0})).appendBlockDownward(newLamp());
        mId = resident(std::move(post));
        dialogAnswers().post = [](TrfcPost&, int) { return *rc::gen::arbitrary<bool>(); };
    }
    void TestBody() override {}
    using SignsFixture::newPost;
    using SignsFixture::setScale;

    void step() {
        if (*rc::gen::inRange(0, 3) == 0)
            visitAnyScale();
        else
            dragAnyGrip();
    }
    void check() {
        const AcDbObjectPointer<TrfcPost> resident(mId);
        const TrfcPost& post = *resident.object();
        RC_ASSERT(post.activeGrip() == nullptr);
        checkArm(post);
        RC_ASSERT(post.signChain().size() == 2);
        expectLaidWithoutGap(post.signChain());
        for (int i = 0; i < post.lampChainCount(); ++i)
            checkLamp(post, post.lampChain(i));
        const std::unique_ptr<TrfcPost> copy(post.clone());
        RC_ASSERT(filed(*copy) == filed(post));
        RC_ASSERT(!testing::Test::HasFailure());
    }

private:
    // At 1:500 AB is at least 5, CD at least 3 and the foot 1 across.
    void checkArm(const TrfcPost& post) const {
        const double unit = mScale / 500.0;
        RC_ASSERT(post.vectorAB().length() >= 5.0 * unit - kSlack);
        RC_ASSERT(((post.pointB() - post.pointA()) - post.vectorAB()).length() < kSlack);
        RC_ASSERT((post.pointD() - post.pointC()).length() >= 3.0 * unit - kSlack);
        RC_ASSERT(post.hasBend() || post.pointC().distanceTo(post.pointB()) < kSlack);
        RC_ASSERT(post.pointE().distanceTo(post.pointA()) >= 0.5 * unit - kSlack);
        RC_ASSERT(post.signChain().position().distanceTo(post.pointD()) < kSlack);
        RC_ASSERT(std::abs(std::remainder(post.signChain().rotation() - post.rotation(), kTwoPi)) < kSlack);
        RC_ASSERT(post.baseBlock().position().distanceTo(post.pointA()) < kSlack);
    }
    // Its chain hangs on the rim, against its own axis.
    void checkLamp(const TrfcPost& post, const TrfcBlockChain& chain) const {
        RC_ASSERT(chain.position().distanceTo(post.pointA() - chain.axis() * (post.basePointD() / 2.0)) < kSlack);
        expectLaidWithoutGap(chain);
    }
    void visitAnyScale() {
        mScale = *rc::gen::element(100, 200, 500, 1000, 30000);
        setScale(mScale);
        const AcDbObjectPointer<TrfcPost> post(mId, AcDb::kForWrite);
        const AcGePoint3d foot = post->pointA();
        post->setScale(mScale);
        RC_ASSERT(post->pointA() == foot);
        RC_ASSERT(post->currentScale() == mScale);
    }
    // The whole of it: the move on the open post, then the end or the abort.
    void dragAnyGrip() {
        AcDbObjectPointer<TrfcPost> post(mId, AcDb::kForWrite);
        const Grips grips(*post.object());
        AcDbGripData* const grip = grips.at(*rc::gen::inRange(0, static_cast<int>(grips.names().size())));
        AcDbVoidPtrArray data;
        data.append(grip->appData());
        post->moveGripPointsAt(data, {anyOffset(), anyOffset(), 0.0}, 0);
        if (grip->gripOpStatFunc() == nullptr)
            post->clearActiveGrip(); // a command: no host drags it
        post.close();
        const bool aborted = *rc::gen::inRange(0, 5) == 0;
        if (grip->gripOpStatFunc() != nullptr)
            grip->gripOpStatFunc()(grip, mId, aborted ? AcDbGripOperations::kGripAbort : AcDbGripOperations::kGripEnd);
    }
    static double anyOffset() { return *rc::gen::inRange(-4000, 4000) / 100.0; }

    AcDbObjectId mId;
    int mScale = 500;
};
} // namespace

RC_GTEST_PROP(PostProperties, every_sequence_of_drags_and_scales_leaves_a_whole_post, ()) {
    PostProperty world;
    const int steps = *rc::gen::inRange(1, 12);
    for (int i = 0; i < steps; ++i) {
        world.step();
        world.check();
    }
}

RC_GTEST_PROP(PostProperties, coming_back_to_a_scale_restores_its_record_exactly, ()) {
    PostProperty world;
    const auto post = world.newPost(2);
    const auto show = [&](int scale) {
        world.setScale(scale);
        post->setScale(scale);
    };
    const auto points = [&] { return std::vector<AcGePoint3d>{post->pointA(), post->pointB(), post->pointC(), post->pointD(), post->pointE()}; };
    std::map<int, std::vector<AcGePoint3d>> seen;
    int scale = 500;
    const int steps = *rc::gen::inRange(1, 12);
    for (int i = 0; i < steps; ++i) {
        const std::wstring grip = *rc::gen::element<std::wstring>(L"grip3", L"grip4", L"grip5"); // of one scale alone
        if (Grips(*post).find(grip) != nullptr)
            dragGrip(*post, grip, {*rc::gen::inRange(-4000, 4000) / 100.0, *rc::gen::inRange(-4000, 4000) / 100.0, 0.0});
        seen[scale] = points();
        scale = *rc::gen::element(100, 500, 1000);
        show(scale);
        if (const auto known = seen.find(scale); known != seen.end())
            RC_ASSERT(points() == known->second);
    }
}
