#include "fillAttributeList.h"

#include "CDialog.h"
#include "CListCtrlEd.h"
#include "DialogUser.h"
#include "Resource.h"
#include "TextLibrary.h"

#include <gtest/gtest.h>

#include <map>

namespace {
// The module's post page gives the list a window to stand in.
class AttributeList : public testing::Test {
protected:
    AttributeList() {
        frame.Create(IDD_EDIT_POST, nullptr);
        list.SubclassDlgItem(IDC_ATTRIBUTE_LIST, &frame);
        list.addColumns();
    }
    ~AttributeList() override { frame.DestroyWindow(); }
    void fill(const std::wstring& blockFile) {
        fillAttributeLists(list, library.root(), blockFile, [this](const ACHAR* name) {
            const auto found = stored.find(name);
            return found != stored.end() ? found->second : std::wstring();
        });
    }
    std::wstring cell(int row, int column) const { return list.GetItemText(row, column).text(); }

    DialogUser user;
    TextLibrary library;
    std::map<std::wstring, std::wstring> stored;
    CDialog frame;
    CListCtrlEd list;
};

constexpr char kCommon[] = "<AttributeList>"
                           "<Attribute><Name>Anyag</Name><DefaultValue>Alu</DefaultValue><ValueList>Acel;Alu</ValueList></Attribute>"
                           "</AttributeList>";
} // namespace

TEST_F(AttributeList, gives_the_default_value_and_the_choices) {
    library.add(L"attributes.xml", kCommon);
    fill(L"plate.dwg");
    ASSERT_EQ(list.GetItemCount(), 1);
    EXPECT_EQ(cell(0, 0), L"Anyag");
    EXPECT_EQ(cell(0, 1), L"Alu");
    EXPECT_EQ(list.rowAt(0).kind, attributeRow::kDropDown);
    EXPECT_EQ(list.rowAt(0).valueList, L"Acel;Alu");
    EXPECT_EQ(list.rowAt(0).source, attributeRow::kUserParameter);
    EXPECT_FALSE(list.rowAt(0).readOnly);
}

TEST_F(AttributeList, the_blocks_own_value_goes_before_the_default) {
    library.add(L"attributes.xml", kCommon);
    stored[L"Anyag"] = L"Acel";
    fill(L"plate.dwg");
    EXPECT_EQ(cell(0, 1), L"Acel");
}

TEST_F(AttributeList, a_stored_value_outside_the_choices_is_shown_as_it_is) {
    library.add(L"attributes.xml", kCommon);
    stored[L"Anyag"] = L"Fa";
    fill(L"plate.dwg");
    EXPECT_EQ(cell(0, 1), L"Fa");
}

TEST_F(AttributeList, no_default_and_no_stored_value_give_an_empty_value) {
    library.add(L"attributes.xml", "<AttributeList><Attribute><Name>Jel</Name><ValueList>a;b</ValueList></Attribute></AttributeList>");
    fill(L"plate.dwg");
    ASSERT_EQ(list.GetItemCount(), 1);
    EXPECT_EQ(cell(0, 1), L"");
}

TEST_F(AttributeList, an_attribute_without_name_or_choices_is_skipped) {
    library.add(L"attributes.xml", "<AttributeList>"
                                   "<Attribute><DefaultValue>x</DefaultValue><ValueList>a</ValueList></Attribute>"
                                   "<Attribute><Name>Nincs lista</Name></Attribute>"
                                   "<Attribute><ValueList></ValueList><Name>Szabad</Name></Attribute>"
                                   "</AttributeList>");
    fill(L"plate.dwg");
    ASSERT_EQ(list.GetItemCount(), 1);
    EXPECT_EQ(cell(0, 0), L"Szabad");
    EXPECT_EQ(list.rowAt(0).valueList, L"");
}

TEST_F(AttributeList, the_librarys_own_file_goes_before_the_folders) {
    library.add(L"attributes.xml", kCommon);
    library.add(L"Tiltó\\attributes.xml", "<AttributeList><Attribute><Name>Mez</Name><ValueList/></Attribute></AttributeList>");
    fill(L"Tiltó\\plate.dwg");
    ASSERT_EQ(list.GetItemCount(), 2);
    EXPECT_EQ(cell(0, 0), L"Anyag");
    EXPECT_EQ(cell(1, 0), L"Mez");
}

TEST_F(AttributeList, a_missing_or_broken_file_adds_nothing) {
    attributeRow own;
    own.name = L"Felirat";
    list.addRow(own);
    library.add(L"Tiltó\\attributes.xml", "<AttributeList><Attribute");
    fill(L"Tiltó\\plate.dwg");
    ASSERT_EQ(list.GetItemCount(), 1);
    EXPECT_EQ(cell(0, 0), L"Felirat");
}
