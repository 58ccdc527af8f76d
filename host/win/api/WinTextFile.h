// A wide text stream over a file, with the semantics of a text-mode stream: line ends are
// "\r\n" in the file and "\n" in the program. Opened without an encoding, the file is in the
// system's single-byte code page (Windows-1250).
#pragma once

#include "WinTypes.h"

#include <memory>
#include <string>

class WinTextFile {
public:
    WinTextFile();
    ~WinTextFile(); // closes
    WinTextFile(const WinTextFile&) = delete;
    WinTextFile& operator=(const WinTextFile&) = delete;

    // mode: "r", "w" (replaces) or "a", with an optional "t", and ",ccs=UTF-8", which writes the
    // UTF-8 mark at the head of a new file and reads UTF-8 with or without one. False, with
    // GetLastError, where it cannot be opened or the mode is another.
    bool open(LPCWSTR path, LPCWSTR mode);
    bool isOpen() const;
    // Reads at most size - 1 characters, up to and with a "\n"; always null-ended. Null, with
    // the buffer untouched, at the end of the file. A 0x1A byte ends the text.
    wchar_t* gets(wchar_t* buffer, int size);
    // The next line without its end, of any length. False at the end of the file.
    bool getLine(std::wstring& line);
    bool puts(const std::wstring& text);
    int printf(LPCWSTR format, ...); // rules of acFormat; the characters written, or -1
    // Writes what is held back. False when any write failed since the open.
    bool close();

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};
