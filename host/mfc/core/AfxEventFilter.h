// Watches the widgets of all windows and turns their events into messages.
#pragma once

#include "core/AfxWindow.h"

#include <QObject>

class QKeyEvent;
class QMouseEvent;

class AfxEventFilter : public QObject {
public:
    static AfxEventFilter& instance();
    bool eventFilter(QObject* watched, QEvent* event) override;

    class Bypass { // lets one event through to its widget
    public:
        explicit Bypass(QEvent* event) : mEarlier(sPassed) { sPassed = event; }
        ~Bypass() { sPassed = mEarlier; }
        Bypass(const Bypass&) = delete;
        Bypass& operator=(const Bypass&) = delete;

    private:
        QEvent* mEarlier;
    };

private:
    static inline QEvent* sPassed = nullptr;
    bool mouse(AfxWindow& window, QObject* watched, QMouseEvent* event);
    bool key(AfxWindow& window, QObject* watched, QKeyEvent* event);
    bool focus(QObject* watched, QEvent* event, bool gained);
    bool resized(QObject* watched, QEvent* event);
    bool message(AfxWindow& window, QObject* watched, QEvent* event, AfxMessage& message);
};
