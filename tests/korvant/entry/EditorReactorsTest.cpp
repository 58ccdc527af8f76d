// What the editor's reactors print.
#include "TrfcEditorReactors.h"

#include "AcEdAds.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {
class EditorReactors : public testing::Test {
protected:
    EditorReactors() : mEarlierSink(acSetPrintSink([this](std::wstring_view text) { printed += text; })) {
        acdbHostApplicationServices()->setWorkingDatabase(&mDrawing);
    }
    ~EditorReactors() override {
        acSetPrintSink(mEarlierSink);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    // What is printed for a variable that has taken the value.
    std::wstring told(const ACHAR* variable, short value) {
        resbuf item{};
        item.restype = RTSHORT;
        item.resval.rint = value;
        EXPECT_EQ(acedSetVar(variable, &item), RTNORM);
        printed.clear();
        CEditorReactor reactor;
        reactor.sysVarChanged(variable, true);
        return printed;
    }
    std::wstring printed;

private:
    AcDbDatabase mDrawing;
    AcPrintSink mEarlierSink;
};

struct Document : AcApDocument {
    const ACHAR* fileName() const override { return L"C:\\rajzok\\út.dwg"; }
    AcDbDatabase* database() const override { return nullptr; }
};
} // namespace

TEST_F(EditorReactors, automatic_scaling_below_0_is_no) {
    EXPECT_EQ(told(L"ANNOAUTOSCALE", -4), L"\r\nAuto scaling: no\r\n");
    EXPECT_EQ(told(L"ANNOAUTOSCALE", -1), L"\r\nAuto scaling: no\r\n");
    EXPECT_EQ(told(L"ANNOAUTOSCALE", 0), L"\r\nAuto scaling: yes\r\n");
    EXPECT_EQ(told(L"ANNOAUTOSCALE", 4), L"\r\nAuto scaling: yes\r\n");
}

TEST_F(EditorReactors, visibility_of_annotations_below_1_is_no) {
    EXPECT_EQ(told(L"ANNOALLVISIBLE", 0), L"\r\nAnno visible: no\r\n");
    EXPECT_EQ(told(L"ANNOALLVISIBLE", 1), L"\r\nAnno visible: yes\r\n");
}

TEST_F(EditorReactors, other_variables_print_nothing) {
    CEditorReactor reactor;
    for (const ACHAR* name : {L"CANNOSCALE", L"GRIPCOLOR", L"TRUSTEDPATHS", L"NO_SUCH_VARIABLE"})
        reactor.sysVarChanged(name, true);
    EXPECT_EQ(printed, L"");
}

TEST_F(EditorReactors, the_diagnostic_names_the_document_of_each_event) {
    CDocActivatedReactor reactor;
    Document document;
    reactor.documentCreated(&document);
    reactor.documentToBeActivated(&document);
    reactor.documentActivated(&document);
    EXPECT_EQ(printed, L"\r\nDokumentum neve (documentCreated): C:\\rajzok\\út.dwg\r\n"
                       L"\r\nDokumentum neve (documentToBeActivated): C:\\rajzok\\út.dwg\r\n"
                       L"\r\nDokumentum neve (documentActivated): C:\\rajzok\\út.dwg\r\n");
}

TEST_F(EditorReactors, a_documents_record_goes_with_it) {
    Document first, second;
    AcApDataManager<CDocData> data;
    CDocData& record = data.docData(&first);
    data.docData(&second);
    EXPECT_EQ(&data.docData(&first), &record);
    EXPECT_EQ(data.size(), 2u);
    data.documentToBeDestroyed(&first);
    EXPECT_EQ(data.size(), 1u);
}
