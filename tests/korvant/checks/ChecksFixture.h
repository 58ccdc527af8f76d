// Posts and markings in model space, and a user of the windows.
#pragma once

#include "SignsFixture.h"

#include "AfxDialogDriver.h"
#include "CListCtrl.h"
#include "DialogUser.h"
#include "EdInput.h"
#include "Resource.h"
#include "TrfcStateChangeData.h"

class ChecksFixture : public SignsFixture, public EdInput {
protected:
    ChecksFixture() { edPushInput(this); }
    ~ChecksFixture() override {
        AfxCancelAllDialogs();
        edPopInput();
    }
    // A post whose plates bear these files, from the base upwards.
    AcDbObjectId addPost(const std::vector<std::wstring>& files) {
        auto post = newPost(0);
        for (const std::wstring& file : files)
            post->signChain().appendBlockUpward(newTable(file));
        return resident(std::move(post));
    }
    AcDbObjectId addMarking(TRFC_BLOCK_ENT_TYPE type) {
        auto marking = std::make_unique<TrfcBlockEnt>(plate(L"nyíl.dwg"));
        marking->setType(type);
        return resident(std::move(marking));
    }
    static AcDbObjectPointer<TrfcPost> post(AcDbObjectId id) { return AcDbObjectPointer<TrfcPost>(id); }

    // ---- the user at the command line
    std::optional<std::wstring> nextLine(const std::wstring&) override { return std::nullopt; }
    std::optional<std::wstring> nextDialogLine() override { return std::nullopt; }
    void refuse(const std::wstring&) override {}
    bool breakRequested() override { return ++cancelTests == cancelsAt; }
    int cancelTests = 0, cancelsAt = 0; // 0: never
};
