// Every dialog of the resource script, as it opens without its program: nothing cut off, nothing over
// another control, nothing in another language. The pictures are kept beside the build for people to look at.
#include "AfxApp.h"
#include "CDialog.h"
#include "DialogUser.h"
#include "Resource.h"
#include "WindowLook.h"

#include <gtest/gtest.h>

namespace {
constexpr UINT kGreatestId = 2000;

std::vector<UINT> templates() {
    std::vector<UINT> ids;
    for (UINT id = 1; id <= kGreatestId; ++id)
        if (AfxHasDialogTemplate(id))
            ids.push_back(id);
    return ids;
}

class PlainPage : public CDialog {
protected:
    void OnOK() override {}
    void OnCancel() override {}
};
} // namespace

TEST(EveryTemplate, is_whole_where_it_opens) {
    DialogUser user;
    const std::vector<UINT> ids = templates();
    EXPECT_GE(ids.size(), 10u);
    for (const UINT id : ids) {
        CDialog frame;
        ASSERT_TRUE(frame.Create(static_cast<UINT>(IDD_POST_PROPERTIES)));
        PlainPage page;
        ASSERT_TRUE(page.Create(id, &frame)) << id;
        const bool isPage = (page.GetStyle() & WS_CHILD) != 0;
        if (isPage) {
            for (const int control : {IDC_PROPERTIES_TAB, IDOK, IDCANCEL, IDC_HELP_BUTTON})
                frame.GetDlgItem(control)->ShowWindow(SW_HIDE);
            frame.ShowWindow(SW_SHOW);
        }
        page.ShowWindow(SW_SHOW);
        lookAt(page, "template-" + std::to_string(id));
        page.DestroyWindow();
        frame.DestroyWindow();
    }
}
