// The page of a chain: its signs or lamps in the preview, their order and their properties.
#pragma once

#include "CBlockPage.h"

class TrfcPost;
class TrfcTable;

class CEditBlockChainDlg : public CBlockPage {
public:
    // post: the one the chain hangs on; null leaves individual signs out.
    CEditBlockChainDlg(TrfcBlockChain& chain, TrfcPost* post, LPCTSTR helpTopic);
    LPCTSTR helpTopic() const override { return mHelpTopic; }
    int selectedIndex() const { return mSelected; } // below 0: nothing

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    TrfcBlock* gridBlock() override;
    void refreshPreview() override;
    void OnUp();
    void OnDown();
    void OnAddTable();
    void OnAddLamp();
    void OnDelete();
    void OnType();
    void OnUniqueScale();
    void OnUniqueScaleLeft();
    void OnComplementary();
    void OnIndividualTable();
    DECLARE_MESSAGE_MAP()

private:
    using Move = Acad::ErrorStatus (TrfcBlockChain::*)(int index, int* newIndex);
    TrfcBlock* selectedBlock() const;
    void select(int index);
    void showSelected();
    void showTyped(const TrfcBlock* block);
    void showComplementary(TrfcBlock* block);
    void showUniqueScale(const TrfcBlock* block);
    void showRows(const TrfcBlock* block);
    void enableControls();
    void move(Move operation);
    void addTable(const std::wstring& relativePath);

    TrfcBlockChain& mChain;
    TrfcPost* mPost;
    LPCTSTR mHelpTopic;
    int mSelected = -1;
    bool mShowing = false; // controls are being filled: what they notify is no edit
    CWnd mUniqueScale;
};
