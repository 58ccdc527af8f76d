// Placing posts and road markings, from the prompts to the drawing.
#include "SignsFixture.h"

#include "DialogUser.h"
#include "EdInput.h"
#include "TrfcBlockJig.h"
#include "TrfcPostJig.h"

#include <deque>

namespace {
// Answers prompts with the lines given, in order; then the input has ended.
class Typist : public EdInput {
public:
    explicit Typist(std::deque<std::wstring> answers) : lines(std::move(answers)) { edPushInput(this); }
    ~Typist() override { edPopInput(); }
    std::optional<std::wstring> nextLine(const std::wstring& prompt) override {
        prompts.push_back(prompt);
        if (lines.empty())
            return std::nullopt;
        const std::wstring line = lines.front();
        lines.pop_front();
        return line;
    }
    std::optional<std::wstring> nextDialogLine() override { return std::nullopt; }
    void refuse(const std::wstring& reason) override { ADD_FAILURE() << "refused: " << acToUtf8(reason); }

    std::deque<std::wstring> lines;
    std::vector<std::wstring> prompts;
};

class Placement : public SignsFixture {
protected:
    AcEdJig::DragStatus placePost(std::deque<std::wstring> answers) {
        Typist typist(std::move(answers));
        TrfcPostJig jig;
        const auto status = jig.run(std::make_unique<TrfcPost>());
        prompts = typist.prompts;
        EXPECT_TRUE(typist.lines.empty());
        return status;
    }
    AcEdJig::DragStatus placeMarking(std::deque<std::wstring> answers) {
        Typist typist(std::move(answers));
        TrfcBlockJig jig;
        const auto status = jig.run(std::make_unique<TrfcBlockEnt>());
        prompts = typist.prompts;
        EXPECT_TRUE(typist.lines.empty());
        return status;
    }
    AcDbObjectIdArray placed() {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId());
        return space->entityIds();
    }
    void confirmEverything() {
        dialogAnswers().post = [this](TrfcPost& clone, int page) {
            EXPECT_EQ(page, 1);
            EXPECT_EQ(clone.placementPhase(), 4);
            clone.signChain().appendBlockUpward(newTable(L"a.dwg"));
            return true;
        };
        dialogAnswers().blockEnt = [](TrfcBlockEnt&) { return true; };
    }

    std::vector<std::wstring> prompts;
    DialogUser resources; // for the texts of the prompts
};
} // namespace

TEST_F(Placement, three_points_and_the_sign_dialog_make_a_post) {
    confirmEverything();
    EXPECT_EQ(placePost({L"1,1", L"1,11", L"7,21"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    ASSERT_TRUE(post);
    expectNear(post->pointA(), {1.0, 1.0, 0.0});
    expectNear(post->pointB(), {1.0, 11.0, 0.0});
    expectNear(post->pointC(), {7.0, 17.0, 0.0});
    expectNear(post->pointD(), {7.0, 21.0, 0.0});
    expectNear(post->pointE(), {6.5, 1.0, 0.0});
    EXPECT_EQ(post->placementPhase(), 5);
    EXPECT_EQ(post->signChain().size(), 1);
    ASSERT_EQ(prompts.size(), 3u);
    EXPECT_NE(prompts[0].find(L"Adja meg a beillesztési pontot (A):"), std::wstring::npos);
    EXPECT_NE(prompts[1].find(L"Adja meg az oszlop elforgatását (B):"), std::wstring::npos);
    EXPECT_NE(prompts[2].find(L"Adja meg a táblák beillesztési pontját (D):"), std::wstring::npos);
}

TEST_F(Placement, a_point_equal_to_the_last_sampled_one_counts_all_the_same) {
    confirmEverything();
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(placePost({L"6,20", L"6,30", L"6,40"}), AcEdJig::kNormal);
    EXPECT_EQ(placePost({L"6,40", L"6,50", L"6,60"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 3);
    const AcDbObjectPointer<TrfcPost> post(placed()[2]);
    expectNear(post->pointA(), {6.0, 40.0, 0.0});
}

TEST_F(Placement, Enter_at_the_first_prompt_ends_without_a_post) {
    confirmEverything();
    EXPECT_EQ(placePost({L""}), AcEdJig::kNull);
    EXPECT_EQ(placed().length(), 0);
}

TEST_F(Placement, a_cancel_at_any_point_leaves_nothing) {
    confirmEverything();
    EXPECT_EQ(placePost({}), AcEdJig::kCancel);
    EXPECT_EQ(placePost({L"1,1"}), AcEdJig::kCancel);
    EXPECT_EQ(placePost({L"1,1", L"1,11"}), AcEdJig::kCancel);
    EXPECT_EQ(placed().length(), 0);
}

TEST_F(Placement, a_cancelled_dialog_leaves_nothing) {
    EXPECT_EQ(placePost({L"1,1", L"1,11", L"7,21"}), AcEdJig::kNormal);
    EXPECT_EQ(placed().length(), 0);
}

TEST_F(Placement, a_post_is_placed_with_the_substitute_of_a_missing_foot) {
    confirmEverything();
    TrfcDocSettings::setDocString(DOC_POST_DEFAULT_DWG, L"Oszlopok\\Nincs.dwg");
    EXPECT_EQ(placePost({L"1,1", L"1,11", L"7,21"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    EXPECT_FALSE(post->baseBlock().descriptor().blockId.isNull());
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Nincs.dwg");
}

TEST_F(Placement, a_foot_with_a_multiline_attribute_is_refused) {
    confirmEverything();
    library.add(L"Oszlop\\Oszlopok\\Jelzőoszlop.dwg", "disk 0.5\nmattdef T x\n");
    EXPECT_EQ(placePost({}), AcEdJig::kCancel);
    EXPECT_TRUE(prompts.empty());
    EXPECT_NE(resources.printed().find(L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n"), std::wstring::npos);
}

TEST_F(Placement, a_D_near_the_axis_gives_a_post_without_a_bend) {
    confirmEverything();
    EXPECT_EQ(placePost({L"0,0", L"0,10", L"0.4,20"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    EXPECT_FALSE(post->hasBend());
    expectNear(post->pointD(), {0.0, 20.0, 0.0});
}

// ---- road markings -----------------------------------------------------------------------------------------

TEST_F(Placement, a_point_an_angle_and_the_dialog_make_a_marking) {
    confirmEverything();
    EXPECT_EQ(placeMarking({L"3,4", L"180"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcBlockEnt> marking(placed()[0]);
    expectNear(marking->position(), {3.0, 4.0, 0.0});
    expectNear(marking->upVector(), {-1.0, 0.0, 0.0}); // the angle is the way up
    ASSERT_EQ(prompts.size(), 2u);
    EXPECT_NE(prompts[0].find(L"Adja meg a beillesztési pontot:"), std::wstring::npos);
    EXPECT_NE(prompts[1].find(L"Adja meg a blokk elforgatását <"), std::wstring::npos);
}

TEST_F(Placement, Enter_at_the_angle_repeats_the_last_turn) {
    confirmEverything();
    placeMarking({L"3,4", L"180"});
    EXPECT_EQ(placeMarking({L"30,4", L""}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 2);
    const AcDbObjectPointer<TrfcBlockEnt> marking(placed()[1]);
    expectNear(marking->upVector(), {-1.0, 0.0, 0.0});
    EXPECT_NE(prompts[1].find(L"<1.570796>"), std::wstring::npos) << acToUtf8(prompts[1]);
}

TEST_F(Placement, a_hanging_marking_points_its_symbol_along_the_angle) {
    confirmEverything();
    library.add(L"Jelek\\TrfcBlockDefault.dwg", "box 1 -1\n");
    EXPECT_EQ(placeMarking({L"0,0", L"0"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcBlockEnt> marking(placed()[0]);
    expectNear(marking->upVector(), {1.0, 0.0, 0.0});
}

TEST_F(Placement, a_cancelled_marking_leaves_nothing) {
    EXPECT_EQ(placeMarking({L"3,4", L"90"}), AcEdJig::kNormal);
    EXPECT_EQ(placeMarking({L"3,4"}), AcEdJig::kCancel);
    EXPECT_EQ(placeMarking({L""}), AcEdJig::kNull);
    EXPECT_EQ(placed().length(), 0);
}
