// A frame with a title in its upper edge, so that what stands in it keeps its place in the template.
#pragma once

#include <QGroupBox>

class AfxGroupWidget : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};
