// A block library for tests whose drawings are text files, read by a file codec of the tests. One
// shape a line, in drawing units:
//   box W H            outline from (-W/2, 0) to (W/2, H); a negative H hangs below the origin
//   disk R             filled circle about the origin's (0, R)
//   fill COLOR X Y ...  filled polygon in a colour index
//   attdef TAG VALUE   attribute definition;  mattdef: a multiline one
//   preview W H RRGGBB [sides RRGGBB]  the preview stored in the file; sides: a fifth of its width at
//                      the left and at the right
// A file that begins with "junk" is no drawing.
#pragma once

#include <string>

class TextLibrary {
public:
    // A folder of its own; the codec is in force while the library lives.
    TextLibrary();
    ~TextLibrary();
    TextLibrary(const TextLibrary&) = delete;
    TextLibrary& operator=(const TextLibrary&) = delete;

    const std::wstring& root() const { return mRoot; } // host path, no closing backslash
    std::wstring path(const std::wstring& relative) const { return mRoot + L"\\" + relative; }
    // Makes the folders on the way. relative: with backslashes; content: UTF-8, an ".xml" file is
    // written in the single-byte code page, as installed ones are.
    void add(const std::wstring& relative, const std::string& content) const;
    void addFolder(const std::wstring& relative) const;
    void addBitmap(const std::wstring& relative, int width, int height, unsigned rgb) const;
    std::string contentOf(const std::wstring& relative) const; // empty where there is no such file

private:
    std::wstring mRoot;
};
