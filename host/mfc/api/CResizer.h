// Keeps the controls of a resizable dialog in place: each is anchored to edges of the window.
#pragma once

#include "CWnd.h"

#include <vector>

class CResizer {
public:
    enum Anchor : UINT { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8, kTopLeft = 3, kTopRight = 6, kBottomLeft = 9, kBottomRight = 12, kAll = 15 };
    // The dialog's present size is the reference and the least size. Call in OnInitDialog.
    void Attach(CWnd* dialog);
    // Anchored to both sides of a direction a control stretches, to none it keeps to the left top.
    void Add(int id, UINT anchors);
    void Resize(); // from OnSize; does nothing before Attach

private:
    struct Item { int id; UINT anchors; CRect rect; };
    CWnd* mDialog = nullptr;
    CSize mSize;
    std::vector<Item> mItems;
};
