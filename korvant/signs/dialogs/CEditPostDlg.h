// The general page of a post: foot symbol, state, annotation, material, height and the foot's attributes.
#pragma once

#include "CBlockPage.h"

class TrfcPost;

class CEditPostDlg : public CBlockPage {
public:
    explicit CEditPostDlg(TrfcPost& post); // the copy that is edited
    LPCTSTR helpTopic() const override { return L"Post_General.html"; }

protected:
    BOOL OnInitDialog() override;
    TrfcBlock* gridBlock() override;
    void refreshPreview() override;
    void writePageField(int row) override;
    void OnSelectBlock();
    void OnType();
    void OnFollowRotation();
    DECLARE_MESSAGE_MAP()

private:
    enum Field { kText, kMaterial, kHeight };
    void showPost();
    TrfcPost& mPost;
};
