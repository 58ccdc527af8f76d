// What a person sees of an open window, and the mouse over it.
#pragma once

#include "CWnd.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

// What a person would object to, one line a fault that names the control: a text that is cut off, controls
// over one another or beyond the edge of their window, a word of the toolkit's own language. Empty where all is well.
// The window must be shown.
std::vector<std::string> windowFaults(const CWnd& window);
// Words of another language in the toolkit's own window for files, which opens where no script answers.
std::vector<std::string> foreignWordsOfFileWindow(bool open);

// Keeps the picture of the window as it looks now, as NAME.png in the folder dialog-pictures of the build tree.
void keepPicture(const CWnd& window, const std::string& name);
// Both, with a failure of the running test for each fault.
void lookAt(const CWnd& window, const std::string& name);
// The window that has the user's attention.
CWnd* topWindow();

COLORREF pixelOf(const CWnd& window, CPoint at); // client pixels
// The pixels of a window that have the colour, each part of it within the tolerance.
int countPixels(const CWnd& window, COLORREF color, int tolerance = 0);

// The mouse, as the system sends it to the widget that lies at a point of the window.
void moveMouse(const CWnd& window, CPoint at);
void clickMouse(const CWnd& window, CPoint at);
void moveMouseAway(const CWnd& window);

// Counts the paintings of a window while it lives.
class PaintCounter {
public:
    explicit PaintCounter(const CWnd& window);
    ~PaintCounter();
    int count(); // since the last question

private:
    struct Watcher;
    std::unique_ptr<Watcher> mWatcher;
};
