#include "AcDbAnnotationScale.h"
#include "AcDbEntities.h"
#include "AcEdAds.h"
#include "AcEdReactors.h"
#include "EdSession.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {
TEST(EdSysVars, have_the_values_that_users_take_for_granted) {
    EdSession user;
    const EdSysVars& vars = EdSysVars::instance();
    EXPECT_EQ(vars.getShort(L"GRIPCOLOR"), 150);
    EXPECT_EQ(vars.getShort(L"GRIPHOVER"), 11);
    EXPECT_EQ(vars.getShort(L"GRIPHOT"), 12);
    EXPECT_EQ(vars.getShort(L"GRIPSIZE"), 5);
    EXPECT_EQ(vars.getShort(L"PICKFIRST"), 1);
    EXPECT_EQ(vars.getShort(L"PROXYSHOW"), 1);
    EXPECT_EQ(vars.getShort(L"MEASUREMENT"), 1);
    EXPECT_EQ(vars.getText(L"CLAYER"), L"0");
    EXPECT_EQ(vars.getText(L"DWGNAME"), L"Drawing1.dwg");
}
TEST(EdSysVars, keep_their_type) {
    EdSession user;
    resbuf value = {};
    ASSERT_EQ(acedGetVar(L"gripsize", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSHORT);
    ASSERT_EQ(acedGetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(value.restype, RTREAL);
    ASSERT_EQ(acedGetVar(L"INSBASE", &value), RTNORM);
    EXPECT_EQ(value.restype, RT3DPOINT);
    ASSERT_EQ(acedGetVar(L"CLAYER", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSTR);
    acutDelString(value.resval.rstring);
    EXPECT_EQ(acedGetVar(L"NOSUCHVAR", &value), RTERROR);
}
TEST(EdSysVars, refuse_what_they_cannot_hold) {
    EdSession user;
    EdSysVars& vars = EdSysVars::instance();
    EXPECT_FALSE(vars.set(L"DWGNAME", std::wstring(L"x")).empty());
    EXPECT_FALSE(vars.set(L"GRIPSIZE", 0.0).empty());
    EXPECT_FALSE(vars.set(L"GRIPSIZE", 2.5).empty());
    EXPECT_FALSE(vars.set(L"CLAYER", std::wstring(L"absent")).empty());
    EXPECT_FALSE(vars.set(L"LTSCALE", 0.0).empty());
    EXPECT_FALSE(vars.set(L"CLAYER", 5.0).empty());
    EXPECT_FALSE(vars.setFromText(L"LTSCALE", L"much").empty());
    EXPECT_FALSE(vars.setFromText(L"NOSUCHVAR", L"1").empty());
    EXPECT_TRUE(vars.set(L"LTSCALE", 2.0).empty());
    EXPECT_EQ(user.db().ltscale(), 2.0);
}
std::map<std::wstring, std::wstring>& userProfile() {
    static std::map<std::wstring, std::wstring> kept;
    return kept;
}
TEST(EdSysVars, of_the_user_are_there_again_at_the_next_start_and_no_others) {
    EdSession user;
    EdSysVars& vars = EdSysVars::instance();
    const EdUserProfile profile{[](const wchar_t* name) { return userProfile()[name]; }, [](const wchar_t* name, const std::wstring& value) { userProfile()[name] = value; }};
    vars.useProfile(profile);
    EXPECT_EQ(vars.getText(L"TRUSTEDPATHS"), L"");
    user.type({L"TRUSTEDPATHS", L"C:\\Παράδειγμα", L"GRIPSIZE 9", L"HPNAME DOTS"});
    vars.reset(); // the next start
    EXPECT_EQ(vars.getText(L"TRUSTEDPATHS"), L"");
    vars.useProfile(profile);
    EXPECT_EQ(vars.getText(L"TRUSTEDPATHS"), L"C:\\Παράδειγμα");
    EXPECT_EQ(vars.getShort(L"GRIPSIZE"), 5);
    EXPECT_EQ(vars.getText(L"HPNAME"), L"ANSI31");
    vars.reset();
}
TEST(EdSysVars, are_asked_for_by_name) {
    EdSession user;
    user.type({L"LTSCALE 0.25", L"SETVAR GRIPSIZE 9", L"DWGNAME", L"TRUSTEDPATHS", L"C:\\A B;D:\\C"});
    EXPECT_EQ(user.db().ltscale(), 0.25);
    EXPECT_EQ(EdSysVars::instance().getShort(L"GRIPSIZE"), 9);
    EXPECT_TRUE(user.printed(L"DWGNAME = \"Drawing1.dwg\" (read only)"));
    EXPECT_EQ(EdSysVars::instance().getText(L"TRUSTEDPATHS"), L"C:\\A B;D:\\C");
}
class Listener : public AcEditorReactor {
public:
    Listener() { acedEditor()->addReactor(this); }
    ~Listener() override { acedEditor()->removeReactor(this); }
    void sysVarChanged(const ACHAR* n, bool success) override { calls.push_back(std::wstring(success ? L"set " : L"refused ") + n); }
    std::vector<std::wstring> calls;
};
TEST(EdSysVars, reactors_hear_of_a_change_and_of_a_failed_one) {
    EdSession user;
    const Listener listener;
    EdSysVars::instance().set(L"ltscale", 3.0);
    EdSysVars::instance().set(L"ltscale", -3.0);
    EXPECT_EQ(listener.calls, (std::vector<std::wstring>{L"set LTSCALE", L"refused LTSCALE"}));
}
class ScaleListener : public AcDbAnnotationScaleReactor {
public:
    ScaleListener() { acdbAddAnnotationScaleReactor(this); }
    ~ScaleListener() override { acdbRemoveAnnotationScaleReactor(this); }
    void annotationScaleChanged(AcDbDatabase*, AcDbObjectId, AcDbAnnotationScale* scale, bool) override {
        std::wstring name;
        scale->getName(name);
        names.push_back(name);
    }
    std::vector<std::wstring> names;
};
TEST(EdSysVars, cannoscale_takes_only_names_of_the_scale_list) {
    EdSession user;
    const ScaleListener listener;
    user.type({L"CANNOSCALE 1:500"});
    EXPECT_TRUE(user.refusal.empty());
    EXPECT_EQ(listener.names, (std::vector<std::wstring>{L"1:500"}));
    user.type({L"CANNOSCALE", L"1:333", L"1:333", L"1:333"});
    EXPECT_EQ(user.refusal, L"\"1:333\": \"1:333\" is not in the scale list of the drawing.");
    EXPECT_EQ(EdSysVars::instance().getText(L"CANNOSCALE"), L"1:500");
}
TEST(EdSysVars, a_scale_added_to_the_list_can_be_set) {
    EdSession user;
    user.type({L"SCALELISTEDIT", L"Add", L"1:333", L"3:1", L"", L"CANNOSCALE 1:333", L"CANNOSCALEVALUE"});
    EXPECT_TRUE(user.refusal.empty()) << acToUtf8(user.refusal);
    EXPECT_TRUE(user.printed(L"CANNOSCALEVALUE = 3 (read only)"));
    user.type({L"SCALELISTEDIT", L"Delete", L"1:333"});
    EXPECT_EQ(user.refusal, L"The current scale cannot be deleted.");
}

// ---- selection
TEST(EdSelect, a_window_takes_what_is_inside_and_crossing_what_it_touches) {
    EdSession user;
    user.type({L"LINE 0,0 10,0", L"", L"LINE 4,5 6,5", L"", L"SELECT W 3,-1 7,6", L""});
    AcDbObjectIdArray ids;
    EXPECT_EQ(acedGetCurrentSelectionSet(ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 1);
    user.type({L"SELECT C 3,-1 7,6", L""});
    EXPECT_EQ(acedGetCurrentSelectionSet(ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 2);
}
TEST(EdSelect, picks_last_previous_all_handles_add_and_remove) {
    EdSession user;
    user.type({L"POINT 0,0", L"POINT 50,0", L"LINE 0,20 50,20", L""});
    const std::wstring handle = user.entities()[0].handle().text();
    AcDbObjectIdArray ids;
    user.type({L"SELECT 25,20", L""});
    acedGetCurrentSelectionSet(ids);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], user.entities()[2]);
    user.type({L"SELECT ALL R L", L""});
    acedGetCurrentSelectionSet(ids);
    EXPECT_EQ(ids.length(), 2);
    user.type({L"SELECT P A L", L""});
    acedGetCurrentSelectionSet(ids);
    EXPECT_EQ(ids.length(), 3);
    user.type({L"SELECT (handent \"" + handle + L"\")", L""});
    acedGetCurrentSelectionSet(ids);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], user.entities()[0]);
}
TEST(EdSelect, a_pick_first_set_is_taken_by_the_next_command_and_then_gone) {
    EdSession user;
    user.type({L"POINT 0,0", L"POINT 50,0", L"SELECT L", L"", L"MOVE 0,0 0,7"});
    AcDbObjectIdArray ids;
    EXPECT_EQ(AcDbObjectPointer<AcDbPoint>(user.entities()[1])->position(), AcGePoint3d(50, 7, 0));
    EXPECT_EQ(acedGetCurrentSelectionSet(ids), Acad::eNotApplicable);
}
TEST(EdSelect, objects_on_a_locked_layer_stay) {
    EdSession user;
    user.type({L"LAYER M Fixed LOCK Fixed", L"", L"POINT 0,0", L"ERASE ALL", L""});
    EXPECT_EQ(user.entities().size(), 1u);
    EXPECT_TRUE(user.printed(L"1 on a locked layer."));
}
TEST(EdSelect, what_is_off_or_frozen_cannot_be_picked) {
    EdSession user;
    user.type({L"LAYER M Gone", L"", L"POINT 0,0", L"LAYER OFF Gone", L"", L"SELECT 0,0 L", L""});
    AcDbObjectIdArray ids;
    EXPECT_EQ(acedGetCurrentSelectionSet(ids), Acad::eNotApplicable);
}
TEST(AcEdSets, a_set_is_filtered_by_type_and_layer) {
    EdSession user;
    user.type({L"POINT 0,0", L"LINE 0,0 1,1", L"", L"LAYER M Kerb", L"", L"LINE 0,0 2,2", L""});
    ads_name set;
    resbuf* const filter = acutNewRb(0); // a list cannot be built from type 0, which ends one
    filter->resval.rstring = acutNewString(L"LINE");
    filter->rbnext = acutNewRb(8);
    filter->rbnext->resval.rstring = acutNewString(L"k*");
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), RTNORM);
    acutRelRb(filter);
    Adesk::Int32 length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 1);
    ads_name entity;
    EXPECT_EQ(acedSSName(set, 0, entity), RTNORM);
    EXPECT_EQ(acedSSName(set, 1, entity), RTERROR);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
}
TEST(AcEdSets, a_set_knows_its_members) {
    EdSession user;
    user.type({L"POINT 0,0", L"POINT 1,1"});
    ads_name first, second, set, nothing = {0, 0};
    acdbGetAdsName(first, user.entities()[0]);
    acdbGetAdsName(second, user.entities()[1]);
    ASSERT_EQ(acedSSAdd(first, nullptr, set), RTNORM);
    EXPECT_EQ(acedSSMemb(first, set), RTNORM);
    EXPECT_EQ(acedSSMemb(second, set), RTERROR);
    ASSERT_EQ(acedSSAdd(second, set, set), RTNORM);
    ASSERT_EQ(acedSSAdd(second, set, set), RTNORM);
    EXPECT_EQ(acedSSMemb(second, set), RTNORM);
    Adesk::Int32 length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 2) << "an object is a member once";
    EXPECT_EQ(acedSSMemb(first, nothing), RTERROR) << "no set";
    EXPECT_EQ(acedSSMemb(nothing, set), RTERROR) << "no object";
    acedSSFree(set);
    EXPECT_EQ(acedSSMemb(first, set), RTERROR) << "a freed set";
}
TEST(AcEdSets, ent_sel_gives_the_object_and_the_place) {
    EdSession user;
    user.type({L"LINE 0,0 10,0", L""});
    ads_name entity;
    ads_point pick;
    user.lines = {L"5,0", L"5,100", L"^C"};
    ASSERT_EQ(acedEntSel(nullptr, entity, pick), RTNORM);
    AcDbObjectId id;
    EXPECT_EQ(acdbGetObjectId(id, entity), Acad::eOk);
    EXPECT_EQ(id, user.entities()[0]);
    EXPECT_EQ(pick[0], 5.0);
    EXPECT_EQ(acedEntSel(nullptr, entity, pick), RTERROR);
    EXPECT_EQ(acedEntSel(nullptr, entity, pick), RTCAN);
}
TEST(EdGrips, a_bare_point_is_listed_and_dragged) {
    EdSession user;
    user.type({L"LINE 0,0 10,0", L"", L"SELECT L", L"", L"GRIPLIST", L"GRIPDRAG 0 1,2"});
    EXPECT_TRUE(user.printed(L"  0  grip           0,0"));
    EXPECT_EQ(user.only<AcDbLine>()->startPoint(), AcGePoint3d(1, 2, 0));
    user.type({L"U"});
    EXPECT_EQ(user.only<AcDbLine>()->startPoint(), AcGePoint3d(0, 0, 0));
}
TEST(EdGrips, a_preview_shows_the_dragged_object_and_leaves_it_alone) {
    for (const wchar_t* const line : {L"GRIPDRAG 1 5,2 preview", L"GRIPDRAG 1 Preview 5,2", L"GRIPDRAG 1 5,2 P"}) {
        EdSession user;
        user.type({L"LINE 0,0 10,0", L"", L"SELECT L", L"", line, L"COUNT"});
        EXPECT_TRUE(user.printed(L"  polyline (0,0,0) (15,2,0)"));
        EXPECT_TRUE(user.printed(L"1  in all")); // the line was used up
        EXPECT_EQ(user.only<AcDbLine>()->endPoint(), AcGePoint3d(10, 0, 0));
        EXPECT_EQ(user.refusal, L"");
    }
}
TEST(EdGrips, what_follows_an_offset_on_its_line_is_the_next_command) {
    EdSession user;
    user.type({L"LINE 0,0 10,0", L"", L"SELECT L", L"", L"GRIPDRAG 0 1,2 COUNT"});
    EXPECT_TRUE(user.printed(L"1  in all"));
    EXPECT_EQ(user.only<AcDbLine>()->startPoint(), AcGePoint3d(1, 2, 0));
}
TEST(EdGrips, a_drag_by_nothing_says_so) {
    EdSession user;
    user.type({L"LINE 0,0 10,0", L"", L"SELECT L", L"", L"GRIPDRAG 0 0,0"});
    EXPECT_TRUE(user.printed(L"The grip stays where it is."));
    EXPECT_EQ(user.refusal, L"");
}
TEST(EdGrips, an_absent_grip_ends_the_run_with_its_name) {
    for (const wchar_t* const grip : {L"3", L"-1", L"top"}) {
        EdSession user;
        user.type({L"LINE 0,0 10,0", L"", L"SELECT L", L"", std::wstring(L"GRIPDRAG ") + grip + L" 1,1", L"ERASE"});
        EXPECT_EQ(user.refusal, std::wstring(L"There is no grip ") + grip + L".");
        EXPECT_EQ(user.only<AcDbLine>()->startPoint(), AcGePoint3d(0, 0, 0));
    }
}
TEST(EdGrips, objects_without_grips_are_told_in_one_line) {
    EdSession user;
    AcDbObjectId id;
    auto* const plain = new AcDbEntity;
    ASSERT_EQ(edAppend(user.db(), plain, id), Acad::eOk);
    user.type({L"SELECT ALL", L"", L"GRIPLIST"});
    EXPECT_TRUE(user.printed(L"The selected objects have no grips."));
    EXPECT_EQ(user.refusal, L"");
    user.type({L"SELECT ALL", L"", L"GRIPDRAG 0 1,1"});
    EXPECT_EQ(user.refusal, L"The selected objects have no grips.");
}
TEST(EdGrips, an_erased_object_is_not_selected_and_nothing_is_dragged) {
    EdSession user;
    user.type({L"LINE 0,0 10,0", L"", L"LINE 0,5 10,5", L"", L"SELECT L", L"", L"ERASE", L"GRIPLIST P", L""});
    EXPECT_TRUE(user.printed(L"0 found"));
    EXPECT_FALSE(user.printed(L"  0  grip"));
}
} // namespace
