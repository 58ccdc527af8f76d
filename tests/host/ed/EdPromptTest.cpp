#include "AcDbEntities.h"
#include "AcEdAds.h"
#include "AcEdJig.h"
#include "EdSession.h"
#include "input/EdPrompt.h"

#include <gtest/gtest.h>

namespace {
TEST(EdPrompt, a_blank_ends_a_point_and_the_rest_answers_the_next_prompt) {
    EdSession user;
    user.lines = {L"1,2 3,4 7.5"};
    AcGePoint3d a, b;
    double d = 0.0;
    EXPECT_TRUE(EdPrompt(L"a: ").point(a).ok());
    EXPECT_TRUE(EdPrompt(L"b: ").point(b).ok());
    EXPECT_TRUE(EdPrompt(L"d: ").real(d).ok());
    EXPECT_EQ(b, AcGePoint3d(3, 4, 0));
    EXPECT_EQ(d, 7.5);
}
TEST(EdPrompt, the_third_refused_answer_stops_the_run) {
    EdSession user;
    user.lines = {L"x", L"y", L"z", L"1,2"};
    AcGePoint3d p;
    EXPECT_TRUE(EdPrompt(L"p: ").point(p).cancelled());
    EXPECT_EQ(user.refusal, L"\"z\": Invalid point.");
    EXPECT_EQ(user.lines.size(), 1u);
}
TEST(EdPrompt, two_refused_answers_are_forgiven) {
    EdSession user;
    user.lines = {L"x", L"y", L"1,2"};
    AcGePoint3d p;
    EXPECT_TRUE(EdPrompt(L"p: ").point(p).ok());
    EXPECT_TRUE(user.refusal.empty());
}
TEST(EdPrompt, enter_alone_is_none_unless_it_is_forbidden) {
    EdSession user;
    user.lines = {L"", L"", L"5"};
    int n = 0;
    EXPECT_TRUE(EdPrompt(L"n: ").integer(n).none());
    EXPECT_TRUE(EdPrompt(L"n: ").noNull().integer(n).ok());
    EXPECT_EQ(n, 5);
}
TEST(EdPrompt, angles_are_degrees_and_a_point_gives_the_direction) {
    EdSession user;
    user.lines = {L"90", L"1,1"};
    double a = 0.0;
    EXPECT_TRUE(EdPrompt(L"a: ").angle(a).ok());
    EXPECT_DOUBLE_EQ(a, kHalfPi);
    EXPECT_TRUE(EdPrompt(L"a: ").base({0, 0, 0}).angle(a).ok());
    EXPECT_DOUBLE_EQ(a, kPi / 4);
}
TEST(EdPrompt, a_name_on_its_own_line_may_hold_blanks) {
    EdSession user;
    user.lines = {L"two words", L"x one two", L"x \"one two\" y"};
    std::wstring name, first;
    EXPECT_TRUE(EdPrompt(L"n: ").name(name).ok());
    EXPECT_EQ(name, L"two words");
    EXPECT_TRUE(EdPrompt(L"w: ").word(first).ok());
    EXPECT_TRUE(EdPrompt(L"n: ").name(name).ok());
    EXPECT_EQ(name, L"one");
    EdInputStack::instance().dropPending();
    EXPECT_TRUE(EdPrompt(L"w: ").word(first).ok());
    EXPECT_TRUE(EdPrompt(L"n: ").name(name).ok());
    EXPECT_EQ(name, L"one two");
}
TEST(EdPrompt, a_cancel_line_cancels) {
    EdSession user;
    user.lines = {L"^C", L"1,2"};
    AcGePoint3d p;
    EXPECT_TRUE(EdPrompt(L"p: ").point(p).cancelled());
    EXPECT_TRUE(EdInputStack::instance().cancelled());
    EXPECT_TRUE(user.refusal.empty());
}

TEST(AcEdPrompts, get_string_takes_blanks_only_when_told) {
    EdSession user;
    user.lines = {L"one two", L"one two", L""};
    wchar_t buffer[20];
    EXPECT_EQ(acedGetString(0, L"s: ", buffer, 20), RTNORM);
    EXPECT_STREQ(buffer, L"one");
    EdInputStack::instance().dropPending();
    EXPECT_EQ(acedGetString(1, L"s: ", buffer, 20), RTNORM);
    EXPECT_STREQ(buffer, L"one two");
    EXPECT_EQ(acedGetString(0, L"s: ", buffer, 20), RTNORM);
    EXPECT_STREQ(buffer, L"") << "Enter alone is an empty text";
    EXPECT_EQ(acedGetString(0, L"s: ", buffer, 20), RTCAN) << "the input has ended";
}
TEST(AcEdPrompts, get_string_cuts_at_the_length_of_the_buffer) {
    EdSession user;
    user.lines = {L"abcdefgh"};
    wchar_t buffer[4];
    EXPECT_EQ(acedGetString(0, L"s: ", buffer, 4), RTNORM);
    EXPECT_STREQ(buffer, L"abc");
}
TEST(AcEdPrompts, keywords_hold_for_one_question) {
    EdSession user;
    user.lines = {L"c", L"c", L"1,2"};
    ads_point p;
    acedInitGet(0, L"Close");
    EXPECT_EQ(acedGetPoint(nullptr, L"p: ", p), RTKWORD);
    wchar_t word[20];
    acedGetInput(word, 20);
    EXPECT_STREQ(word, L"Close");
    EXPECT_EQ(acedGetPoint(nullptr, L"p: ", p), RTNORM);
}

// A jig over a circle: its centre, then a turn that Enter leaves as it was.
class CircleJig : public AcEdJig {
public:
    int stage = 0, samples = 0, updates = 0;
    AcGePoint3d center, seen;
    double angle = 0.5;
    AcDbCircle* circle = new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 1.0);
    DragStatus sampler() override {
        ++samples;
        if (stage == 1) {
            const DragStatus status = acquireAngle(angle, center);
            return status == kNull ? kNormal : status;
        }
        const DragStatus status = acquirePoint(center);
        if (status == kNormal && center == seen)
            return kNoChange;
        seen = center;
        return status;
    }
    bool update() override {
        ++updates;
        circle->setCenter(center);
        return true;
    }
    AcDbEntity* entity() const override { return circle; }
};
TEST(AcEdJig, each_answer_is_sampled_once_and_shown) {
    EdSession user;
    user.lines = {L"5,6"};
    CircleJig jig;
    jig.setDispPrompt(L"Centre %d: ", 1);
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(jig.samples, 1);
    EXPECT_EQ(jig.updates, 1);
    EXPECT_TRUE(user.printed(L"Centre 1: "));
    const AcDbObjectId id = jig.append();
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(user.only<AcDbCircle>()->center(), AcGePoint3d(5, 6, 0));
}
TEST(AcEdJig, an_answer_that_the_sampler_finds_unchanged_is_an_answer) {
    EdSession user;
    user.lines = {L"0,0"};
    CircleJig jig;
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(jig.updates, 1);
    delete jig.circle;
}
TEST(AcEdJig, enter_alone_is_null_and_leaves_the_entity) {
    EdSession user;
    user.lines = {L""};
    CircleJig jig;
    EXPECT_EQ(jig.drag(), AcEdJig::kNull);
    EXPECT_EQ(jig.updates, 0);
    delete jig.circle;
}
TEST(AcEdJig, a_sampler_may_take_enter_as_an_answer) {
    EdSession user;
    user.lines = {L""};
    CircleJig jig;
    jig.stage = 1;
    jig.setUserInputControls(AcEdJig::kNullResponseAccepted);
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(jig.angle, 0.5);
    EXPECT_EQ(jig.updates, 1);
    delete jig.circle;
}
TEST(AcEdJig, the_end_of_the_input_cancels) {
    EdSession user;
    CircleJig jig;
    EXPECT_EQ(jig.drag(), AcEdJig::kCancel);
    delete jig.circle;
}
TEST(AcEdJig, a_keyword_has_the_number_of_its_place) {
    EdSession user;
    user.lines = {L"u"};
    CircleJig jig;
    jig.setKeywordList(L"Close Undo");
    EXPECT_EQ(jig.drag(), AcEdJig::kKW2);
    delete jig.circle;
}
} // namespace
