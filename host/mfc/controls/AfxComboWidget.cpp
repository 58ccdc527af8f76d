#include "controls/AfxComboWidget.h"

#include "AfxMessages.h"
#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"

AfxComboWidget::AfxComboWidget(DWORD style, QWidget* parent) : QComboBox(parent) {
    const DWORD kind = style & 3;
    setEditable(kind == CBS_DROPDOWN || kind == CBS_SIMPLE);
    setInsertPolicy((style & CBS_SORT) != 0 && !isEditable() ? QComboBox::InsertAlphabetically : QComboBox::NoInsert);
    setMaxVisibleItems(12);
    connect(this, &QComboBox::activated, this, &AfxComboWidget::chosen);
    if (isEditable())
        connect(this, &QComboBox::editTextChanged, this, [this] {
            if (AfxWindow* window = afxFind(this))
                AfxDispatch::command(*window->owner, CBN_EDITCHANGE);
        });
}

void AfxComboWidget::chooseAsUser(int index) {
    setCurrentIndex(index);
    emit activated(index);
}

void AfxComboWidget::chosen(int) {
    if (AfxWindow* window = afxFind(this))
        AfxDispatch::command(*window->owner, CBN_SELCHANGE);
}
