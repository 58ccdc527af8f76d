// A combo box that tells a user's choice from the program's.
#pragma once

#include "WinTypes.h"

#include <QComboBox>

class AfxComboWidget : public QComboBox {
public:
    AfxComboWidget(DWORD style, QWidget* parent);
    void chooseAsUser(int index); // as if picked from the list

private:
    void chosen(int index);
};
