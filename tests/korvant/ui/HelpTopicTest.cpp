#include "showHelpTopic.h"

#include "DialogUser.h"
#include "TextLibrary.h"
#include "TrfcAppSettings.h"
#include "WinShell.h"

#include <gtest/gtest.h>

TEST(HelpTopic, is_a_page_of_the_help_file_beside_the_module) {
    DialogUser user;
    TextLibrary home;
    home.add(L"help\\Welcome.html", "<p>x</p>");
    TrfcAppSettings::setModuleDirectory(home.path(L"korvant.arx"));
    showHelpTopic(nullptr, L"Welcome.html");
    ASSERT_FALSE(winOpenedDocuments().empty());
    EXPECT_TRUE(winOpenedDocuments().back().ends_with(L"\\help\\Korvant.chm::/Welcome.html"));
    EXPECT_TRUE(hasLineWith(user.printed(), L"Welcome.html"));
}
