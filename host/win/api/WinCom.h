// Interfaces by the rules of the component model: every one begins with IUnknown, is asked for by
// its id, and is held by counted references. Streams of bytes, and a stream on a file.
#pragma once

#include "WinTypes.h"

struct GUID {
    std::uint32_t Data1 = 0;
    std::uint16_t Data2 = 0;
    std::uint16_t Data3 = 0;
    std::uint8_t Data4[8] = {};
    friend bool operator==(const GUID&, const GUID&) = default;
};
using IID = GUID;
using REFIID = const IID&;
using LONG_PTR = std::intptr_t;

constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFF);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);
constexpr HRESULT STG_E_INVALIDFUNCTION = static_cast<HRESULT>(0x80030001);
constexpr HRESULT STG_E_ACCESSDENIED = static_cast<HRESULT>(0x80030005);
constexpr HRESULT STG_E_SEEKERROR = static_cast<HRESULT>(0x80030019);
constexpr HRESULT STG_E_WRITEFAULT = static_cast<HRESULT>(0x8003001D);
constexpr HRESULT STG_E_READFAULT = static_cast<HRESULT>(0x8003001E);
constexpr HRESULT STG_E_MEDIUMFULL = static_cast<HRESULT>(0x80030070);
// An error of GetLastError as a result: 0x80070000 and its number.
constexpr HRESULT HRESULT_FROM_WIN32(DWORD code) {
    return code == 0 ? S_OK : static_cast<HRESULT>(0x80070000u | (code & 0xFFFFu));
}

constexpr IID IID_IUnknown{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID IID_IStream{0x0000000C, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID IID_ISequentialStream{0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};

class IUnknown {
public:
    // The same object under another interface, with a reference that the caller releases;
    // E_NOINTERFACE and null where it has none of that id, E_POINTER for a null result.
    virtual HRESULT QueryInterface(REFIID iid, void** object) = 0;
    // The number of references afterwards; with the last one the object is gone.
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default; // by Release alone
};

class ISequentialStream : public IUnknown {
public:
    // S_FALSE where the end of the stream came first. `done` may be null.
    virtual HRESULT Read(void* bytes, ULONG count, ULONG* done) = 0;
    virtual HRESULT Write(const void* bytes, ULONG count, ULONG* done) = 0;

protected:
    ~ISequentialStream() = default;
};

union LARGE_INTEGER {
    std::int64_t QuadPart;
};
union ULARGE_INTEGER {
    std::uint64_t QuadPart;
};
enum STREAM_SEEK : DWORD { STREAM_SEEK_SET = 0, STREAM_SEEK_CUR = 1, STREAM_SEEK_END = 2 };

class IStream : public ISequentialStream {
public:
    // `place`, the new place from the start, may be null. STG_E_SEEKERROR before the start.
    virtual HRESULT Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* place) = 0;
    virtual HRESULT SetSize(ULARGE_INTEGER size) = 0;
    // What was written is with the system. `flags` are not looked at.
    virtual HRESULT Commit(DWORD flags) = 0;

protected:
    ~IStream() = default;
};

constexpr DWORD STGM_READ = 0x0000;
constexpr DWORD STGM_WRITE = 0x0001;
constexpr DWORD STGM_READWRITE = 0x0002;
constexpr DWORD STGM_CREATE = 0x1000; // an existing file is emptied; without it the file must exist
// A stream on the file of a host path. What other STGM flags ask for (sharing, transactions) is not
// looked at. The failures of the file system come as HRESULT_FROM_WIN32, with null in `stream`.
HRESULT SHCreateStreamOnFileW(LPCWSTR path, DWORD mode, IStream** stream);
