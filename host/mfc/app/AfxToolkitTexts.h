// The texts that the toolkit itself shows (context menus, the file dialog), in Hungarian.
#pragma once

#include <QTranslator>

class AfxToolkitTexts : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char* note, int n) const override;
    bool isEmpty() const override { return false; }
};
