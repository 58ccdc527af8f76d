#include "showHelpTopic.h"

#include "DialogUser.h"
#include "TrfcAppSettings.h"
#include "WinShell.h"

#include <gtest/gtest.h>

TEST(HelpTopic, is_addressed_in_the_help_file_beside_the_module) {
    DialogUser user; // takes the printed line
    TrfcAppSettings::setModuleDirectory(L"C:\\Korvant\\korvant.arx");
    showHelpTopic(nullptr, L"Welcome.html");
    ASSERT_FALSE(winOpenedDocuments().empty());
    EXPECT_EQ(winOpenedDocuments().back(), TrfcAppSettings::moduleDirectory() + L"help\\Korvant.chm::/Welcome.html");
}
