#include "AcRxModule.h"

#include <gtest/gtest.h>

#include <vector>

namespace {
struct Message {
    AcRx::AppMsgCode code;
    void* packet;
    std::wstring path;
};
std::vector<Message> gMessages;
bool gUnlock = true;

extern "C" AcRx::AppRetCode keepMessages(AcRx::AppMsgCode code, void* packet) {
    gMessages.push_back({code, packet, acrxCurrentModulePath()});
    if (code == AcRx::kInitAppMsg && gUnlock)
        acrxUnlockApplication(packet);
    return AcRx::kRetOK;
}
extern "C" AcRx::AppRetCode refuse(AcRx::AppMsgCode, void*) {
    return AcRx::kRetError;
}
} // namespace

TEST(Module, gets_its_messages_and_its_own_id_as_packet) {
    gMessages.clear();
    ASSERT_TRUE(acrxLoadModule(L"/a/b/first.arx", keepMessages).loaded);
    EXPECT_EQ(acrxCurrentModulePath(), L"\\a\\b\\first.arx");
    acrxSendToModules(AcRx::kLoadDwgMsg);
    int packet = 0;
    acrxSendToModules(AcRx::kSaveMsg, &packet);
    EXPECT_TRUE(acrxUnloadModule(L"/a/b/first.arx"));
    ASSERT_EQ(gMessages.size(), 4u);
    EXPECT_EQ(gMessages[0].code, AcRx::kInitAppMsg);
    EXPECT_EQ(gMessages[1].packet, gMessages[0].packet);
    EXPECT_EQ(gMessages[2].packet, &packet);
    EXPECT_EQ(gMessages[3].code, AcRx::kUnloadAppMsg);
    EXPECT_EQ(gMessages[1].path, L"\\a\\b\\first.arx");
}
TEST(Module, that_refuses_to_start_is_not_kept) {
    const AcRxModuleLoadResult result = acrxLoadModule(L"refusing.arx", refuse);
    EXPECT_FALSE(result.loaded);
    EXPECT_NE(result.reason.find(L"refused"), std::wstring::npos);
    EXPECT_FALSE(acrxUnloadModule(L"refusing.arx"));
}
TEST(Module, that_never_unlocked_itself_stays) {
    gUnlock = false;
    ASSERT_TRUE(acrxLoadModule(L"locked.arx", keepMessages).loaded);
    EXPECT_FALSE(acrxUnloadModule(L"locked.arx"));
    acrxUnlockApplication(gMessages.back().packet);
    gUnlock = true;
    EXPECT_TRUE(acrxUnloadModule(L"locked.arx"));
}
TEST(Module, is_loaded_once) {
    ASSERT_TRUE(acrxLoadModule(L"once.arx", keepMessages).loaded);
    EXPECT_FALSE(acrxLoadModule(L"once.arx", keepMessages).loaded);
    EXPECT_TRUE(acrxUnloadModule(L"once.arx"));
}
TEST(Module, a_file_that_is_no_module_gives_a_reason) {
    const AcRxModuleLoadResult result = acrxLoadModule(L"/nowhere/none.arx");
    EXPECT_FALSE(result.loaded);
    EXPECT_FALSE(result.reason.empty());
}
TEST(SystemRegistry, keeps_objects_by_name) {
    AcRxObject* const linker = acrxDynamicLinker();
    EXPECT_EQ(acrxSysRegistry()->at(L"Some name"), nullptr);
    acrxSysRegistry()->atPut(L"Some name", linker);
    EXPECT_EQ(acrxSysRegistry()->at(L"Some name"), linker);
    acrxSysRegistry()->remove(L"Some name");
    EXPECT_EQ(acrxSysRegistry()->at(L"Some name"), nullptr);
}
